// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/search_panel.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "paint/theme.h"

namespace tonalith::help {
namespace {

constexpr int kPause = 200;
constexpr int kExtractRole = Qt::UserRole;
constexpr int kExtractLines = 3;
constexpr int kPadding = 8;

/// Paints a title, and below it the extract in the secondary text colour.
class ResultDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
    return {0, option.fontMetrics.lineSpacing() * (1 + kExtractLines) + 2 * kPadding + 2};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem background = option;
    initStyleOption(&background, index);
    background.text.clear();
    background.widget->style()->drawControl(QStyle::CE_ItemViewItem, &background, painter, background.widget);
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    const QColor textColour = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    QRect box = option.rect.adjusted(kPadding, kPadding, -kPadding, -kPadding);
    QFont bold = option.font;
    bold.setWeight(QFont::DemiBold);
    painter->setFont(bold);
    painter->setPen(textColour);
    const QString title = index.data(Qt::DisplayRole).toString();
    painter->drawText(box, Qt::AlignTop | Qt::AlignLeft,
                      QFontMetrics(bold).elidedText(title, Qt::ElideRight, box.width()));
    box.setTop(box.top() + option.fontMetrics.lineSpacing() + 2);
    painter->setFont(option.font);
    painter->setPen(isSelected ? textColour : paint::SecondaryText(option.palette));
    painter->drawText(box, Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap, index.data(kExtractRole).toString());
  }
};

}  // namespace

SearchPanel::SearchPanel(QWidget* parent) : QWidget(parent) {
  text_ = new QLineEdit(this);
  text_->setObjectName(QStringLiteral("txtHelpSearch"));
  text_->setAccessibleName(tr("Search all pages"));
  text_->setPlaceholderText(tr("Search all pages"));
  text_->setClearButtonEnabled(true);
  text_->installEventFilter(this);
  found_ = new QLabel(this);
  found_->setObjectName(QStringLiteral("lblFound"));
  found_->setWordWrap(true);
  results_ = new QListWidget(this);
  results_->setObjectName(QStringLiteral("HelpResults"));
  results_->setAccessibleName(tr("Pages found"));
  results_->setFrameShape(QFrame::NoFrame);
  results_->setItemDelegate(new ResultDelegate(results_));
  results_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(8, 8, 8, 0);
  rows->setSpacing(8);
  rows->addWidget(text_);
  rows->addWidget(found_);
  rows->addWidget(results_, 1);
  pause_.setSingleShot(true);
  pause_.setInterval(kPause);
  connect(&pause_, &QTimer::timeout, this, &SearchPanel::Search);
  connect(text_, &QLineEdit::textChanged, &pause_, qOverload<>(&QTimer::start));
  connect(text_, &QLineEdit::returnPressed, this, &SearchPanel::SearchAndOpen);
  connect(results_, &QListWidget::itemClicked, this, &SearchPanel::Choose);
  connect(results_, &QListWidget::itemActivated, this, &SearchPanel::Choose);
  setFocusProxy(text_);
}

void SearchPanel::SetBook(std::shared_ptr<const HelpBook> book) {
  book_ = std::move(book);
  text_->clear();
  Search();
}

void SearchPanel::Search() {
  pause_.stop();
  results_->clear();
  words_ = SearchWords(text_->text());
  hits_ = SearchPages(*book_, words_);
  for (const SearchHit& hit : hits_) {
    auto* const item = new QListWidgetItem(hit.title, results_);
    item->setData(kExtractRole, hit.extract);
    item->setData(Qt::AccessibleDescriptionRole, hit.extract);
    item->setToolTip(hit.title);
  }
  const auto count = static_cast<int>(hits_.size());
  if (words_.isEmpty()) {
    found_->setText(tr("Finds the pages that have all the words."));
  } else if (count == 0) {
    found_->setText(tr("No page has all of these words."));
  } else {
    found_->setText(count == 1 ? tr("1 page") : tr("%n pages", nullptr, count));
  }
  text_->setAccessibleDescription(found_->text());
}

void SearchPanel::SearchAndOpen() {
  Search();
  if (hits_.empty()) return;
  results_->setCurrentRow(0);
  Choose(results_->item(0));
}

void SearchPanel::Choose(QListWidgetItem* item) {
  const int row = results_->row(item);
  if (row >= 0 && static_cast<std::size_t>(row) < hits_.size()) {
    Q_EMIT PageChosen({hits_[static_cast<std::size_t>(row)].page, {}}, words_);
  }
}

bool SearchPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
    // Select the first page that is not open already.
    results_->setCurrentRow(std::min(results_->currentRow() + 1, results_->count() - 1));
    results_->setFocus(Qt::TabFocusReason);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tonalith::help
