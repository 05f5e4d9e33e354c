// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/index_panel.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include "help/padded_item_delegate.h"

namespace tonalith::help {
namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr int kAnchorRole = Qt::UserRole + 1;

void SetTarget(QTreeWidgetItem* item, const HelpTarget& target) {
  item->setData(0, kPageRole, QString::fromStdString(target.page));
  item->setData(0, kAnchorRole, QString::fromStdString(target.anchor));
}

bool HasTarget(const QTreeWidgetItem* item) { return item->data(0, kPageRole).isValid(); }

}  // namespace

IndexPanel::IndexPanel(QWidget* parent) : QWidget(parent) {
  text_ = new QLineEdit(this);
  text_->setObjectName(QStringLiteral("txtIndex"));
  text_->setAccessibleName(tr("Keyword"));
  text_->setPlaceholderText(tr("Type a keyword"));
  text_->setClearButtonEnabled(true);
  text_->installEventFilter(this);
  keywords_ = new QTreeWidget(this);
  keywords_->setObjectName(QStringLiteral("HelpIndex"));
  keywords_->setAccessibleName(tr("Index"));
  keywords_->setHeaderHidden(true);
  keywords_->setFrameShape(QFrame::NoFrame);
  keywords_->setRootIsDecorated(false);
  keywords_->setUniformRowHeights(true);
  keywords_->setItemDelegate(new PaddedItemDelegate(keywords_));
  none_ = new QLabel(this);
  none_->setObjectName(QStringLiteral("lblIndex"));
  none_->setWordWrap(true);
  none_->setMargin(8);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(8, 8, 8, 0);
  rows->setSpacing(8);
  rows->addWidget(text_);
  rows->addWidget(none_);
  rows->addWidget(keywords_, 1);
  connect(text_, &QLineEdit::textChanged, this, &IndexPanel::Filter);
  connect(text_, &QLineEdit::returnPressed, this, &IndexPanel::ChooseFirst);
  connect(keywords_, &QTreeWidget::itemClicked, this, &IndexPanel::Choose);
  connect(keywords_, &QTreeWidget::itemActivated, this, &IndexPanel::Choose);
  setFocusProxy(text_);
}

void IndexPanel::SetBook(const HelpBook& book) {
  keywords_->clear();
  text_->clear();
  std::vector<QTreeWidgetItem*> parents;
  for (const IndexEntry& entry : book.Index()) AddEntry(entry, parents);
  keywords_->expandAll();
  Filter();
}

void IndexPanel::AddEntry(const IndexEntry& entry, std::vector<QTreeWidgetItem*>& parents) {
  parents.resize(std::min(static_cast<std::size_t>(entry.depth), parents.size()));
  auto* const item = parents.empty() ? new QTreeWidgetItem(keywords_) : new QTreeWidgetItem(parents.back());
  item->setText(0, QString::fromStdString(entry.keyword));
  item->setToolTip(0, item->text(0));
  if (entry.targets.size() == 1) SetTarget(item, entry.targets.front().target);
  if (entry.targets.size() > 1) {
    for (const IndexTarget& indexed : entry.targets) {
      auto* const below = new QTreeWidgetItem(item);
      below->setText(0, QString::fromStdString(indexed.title));
      SetTarget(below, indexed.target);
    }
  }
  parents.push_back(item);
}

void IndexPanel::Filter() {
  const QString typed = text_->text().trimmed();
  bool isAnyLeft = false;
  for (int i = 0; i < keywords_->topLevelItemCount(); ++i) {
    isAnyLeft = FilterEntry(keywords_->topLevelItem(i), typed) || isAnyLeft;
  }
  none_->setVisible(!isAnyLeft);
  none_->setText(keywords_->topLevelItemCount() == 0 ? tr("This help file has no index.")
                                                     : tr("No keyword contains \"%1\".").arg(typed));
}

bool IndexPanel::FilterEntry(QTreeWidgetItem* item, const QString& typed) {
  const bool isMatch = item->text(0).contains(typed, Qt::CaseInsensitive);
  bool stays = isMatch;
  for (int i = 0; i < item->childCount(); ++i) {
    // Show all children of a matching keyword.
    stays = FilterEntry(item->child(i), isMatch ? QString() : typed) || stays;
  }
  item->setHidden(!stays);
  return stays;
}

void IndexPanel::ChooseFirst() {
  for (QTreeWidgetItemIterator at(keywords_, QTreeWidgetItemIterator::NotHidden); *at != nullptr; ++at) {
    if (!HasTarget(*at)) continue;
    keywords_->setCurrentItem(*at);
    Choose(*at);
    return;
  }
}

void IndexPanel::Choose(QTreeWidgetItem* item) {
  if (!HasTarget(item)) return;
  Q_EMIT TargetChosen(
      {item->data(0, kPageRole).toString().toStdString(), item->data(0, kAnchorRole).toString().toStdString()});
}

bool IndexPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
    keywords_->setFocus(Qt::TabFocusReason);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tonalith::help
