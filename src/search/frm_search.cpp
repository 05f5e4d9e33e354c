// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/frm_search.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "core/deferred_failure.h"
#include "paint/theme.h"
#include "windows/field_panel.h"
#include "windows/plain_label.h"
#include "windows/translated.h"

namespace tonalith::search {
namespace {

using windows::PanelButton;

constexpr const char* kTag = "Tag";
/// Total space above and below a caption.
constexpr int kButtonMargins = 14;

}  // namespace

/// Keeps the dialog responsive during a long search: after a delay it shows a busy pointer and processes events every
/// few records. Events may destroy the dialog.
class frmSearch::Watcher : public SearchWatcher {
 public:
  explicit Watcher(frmSearch& form) : form_(&form) { clock_.start(); }
  ~Watcher() override { Watcher::OnEnd(); }
  Watcher(const Watcher&) = delete;
  Watcher& operator=(const Watcher&) = delete;

  void SetMessage(const core::Message& text) override {
    form_->lblMessage_->setText(windows::Translated(text));
    QAccessibleEvent alert(form_->lblMessage_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
  }

  [[nodiscard]] bool ShouldContinue() override {
    // Reading the clock takes longer than testing a record.
    if (++records_ % kRecordsBetweenClocks == 0 && clock_.elapsed() >= nextEvents_) TakeEvents();
    return IsAlive() && !form_->stopRequested_;
  }

  void OnEnd() override {
    if (std::exchange(isBusy_, false)) QGuiApplication::restoreOverrideCursor();
  }

  [[nodiscard]] bool IsAlive() const { return !form_.isNull(); }

 private:
  static constexpr qint64 kFirstEvents = 150;
  static constexpr qint64 kBetweenEvents = 30;
  static constexpr int kRecordsBetweenClocks = 16;

  void TakeEvents() {
    if (!std::exchange(isBusy_, true)) QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    QCoreApplication::processEvents();
    nextEvents_ = clock_.elapsed() + kBetweenEvents;
  }

  QPointer<frmSearch> form_;
  QElapsedTimer clock_;
  qint64 nextEvents_ = kFirstEvents;
  unsigned records_ = 0;
  bool isBusy_ = false;
};

frmSearch::frmSearch(std::unique_ptr<ScaleSource> scales, core::MsgBox& msgBox, QWidget* parent)
    : Window(QStringLiteral("frmSearch"), parent), scales_(std::move(scales)), msgBox_(msgBox) {
  setWindowTitle(tr("Search"));
  MakeControls();
  LayOut();
  FinishConstruction();
  connect(cmdSearch_, &QAbstractButton::clicked, this, &frmSearch::cmdSearch_Click);
  connect(cmdCancel_, &QAbstractButton::clicked, this, &frmSearch::cmdCancel_Click);
  connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, cmdSearch_, &QAbstractButton::click);
}

frmSearch::~frmSearch() = default;

void frmSearch::MakeControls() {
  lblSearch_ = windows::MakePlainLabel(QStringLiteral("lblSearch"), tr("Search"), this);
  txtSearch_ = new QLineEdit(this);
  txtSearch_->setObjectName(QStringLiteral("txtSearch"));
  txtSearch_->setFrame(false);
  txtSearch_->setAccessibleName(tr("Search"));
  lblSearch_->setBuddy(txtSearch_);
  lblHelp_ = windows::MakePlainLabel(QStringLiteral("lblHelp"),
                                     tr("Use terms that use wildcards like *Melodic in the text search"), this);
  lblMessage_ = windows::MakePlainLabel(QStringLiteral("lblMessage"), {}, this);
  QFont messageFont = lblMessage_->font();
  messageFont.setWeight(QFont::DemiBold);
  lblMessage_->setFont(messageFont);
  cmdSearch_ = new PanelButton(QStringLiteral("cmdSearch"), tr("Search"), PanelButton::Kind::kMainAction, this);
  cmdCancel_ = new PanelButton(QStringLiteral("cmdCancel"), tr("Cancel"), PanelButton::Kind::kOrdinary, this);
  cmdSearch_->setDefault(true);
  // A click keeps the focus in the text box for the next text.
  for (PanelButton* const button : {cmdSearch_, cmdCancel_}) button->setFocusPolicy(Qt::TabFocus);
}

void frmSearch::LayOut() {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(24, 20, 24, 20);
  rows->setSpacing(6);
  auto* const textRow = new QHBoxLayout;
  textRow->setSpacing(12);
  textRow->addWidget(lblSearch_);
  textRow->addWidget(new windows::FieldPanel(txtSearch_, this, 6), 1);
  rows->addLayout(textRow);
  rows->addWidget(lblHelp_);
  rows->addSpacing(4);
  rows->addWidget(lblMessage_);
  rows->addSpacing(8);
  rows->addStretch(1);
  auto* const buttonRow = new QHBoxLayout;
  buttonRow->setSpacing(10);
  buttonRow->addStretch(1);
  buttonRow->addWidget(cmdSearch_);
  buttonRow->addWidget(cmdCancel_);
  rows->addLayout(buttonRow);
  rows->setSizeConstraint(QLayout::SetMinimumSize);
}

void frmSearch::ApplyTheme() {
  windows::SetTextColour(*lblHelp_, paint::SecondaryText(palette()));
  windows::SetTextColour(*lblMessage_, paint::SiennaText(palette()));
  // The line keeps its height while it is empty, so that the layout does not jump when the search wraps.
  lblMessage_->setMinimumHeight(lblMessage_->fontMetrics().height());
  for (PanelButton* const button : {cmdSearch_, cmdCancel_}) {
    button->setMinimumHeight(button->fontMetrics().height() + kButtonMargins);
  }
}

bool frmSearch::event(QEvent* event) {
  if (event->type() == QEvent::ChildAdded) static_cast<QChildEvent*>(event)->child()->installEventFilter(this);
  return Window::event(event);
}

bool frmSearch::eventFilter(QObject* watched, QEvent* event) {
  auto* const box = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(watched) : nullptr;
  if (box == nullptr) return Window::eventFilter(watched, event);
  // The box gets its size and position while it handles the event, and is visible only after that.
  watched->event(event);
  MoveOffTheText(*box);
  return true;
}

void frmSearch::MoveOffTheText(QWidget& box) const {
  constexpr int kGap = 12;
  const QRect text(txtSearch_->mapToGlobal(QPoint()), txtSearch_->size());
  const QRect available = screen()->availableGeometry();
  const int titleBar = frameGeometry().height() - height();
  const int below = text.bottom() + 1 + kGap;
  const int above = text.top() - kGap - titleBar - box.height();
  const bool fitsBelow = below + titleBar + box.height() <= available.bottom() + 1;
  // A box that is not visible yet has no frame. Its title bar will be added above its position.
  const int missing = box.frameGeometry().height() == box.height() ? titleBar : 0;
  if (fitsBelow || above >= available.top()) box.move(box.x(), (fitsBelow ? below : above) + missing);
}

void frmSearch::MoveBelowTheName() {
  if (parentWidget() == nullptr) return;
  constexpr int kOverlap = 96;
  adjustSize();
  const QRect window = parentWidget()->window()->frameGeometry();
  const QRect screen = parentWidget()->screen()->availableGeometry();
  const int titleBar = window.height() - parentWidget()->window()->height();
  const int lowest = screen.bottom() + 1 - height() - titleBar;
  move(window.center().x() - width() / 2, qMax(screen.top(), qMin(window.bottom() - kOverlap, lowest)));
}

void frmSearch::ShowModal() {
  MoveBelowTheName();
  txtSearch_->setFocus();
  txtSearch_->selectAll();
  exec();
}

std::string frmSearch::SearchText() const { return txtSearch_->text().toStdString(); }

void frmSearch::SetSearchText(const std::string& text) { txtSearch_->setText(QString::fromStdString(text)); }

template <class Search>
void frmSearch::RunAlone(Search&& search) {
  if (std::exchange(isSearching_, true)) return;
  stopRequested_ = false;
  txtSearch_->setAccessibleDescription(lblHelp_->text());
  core::MsgBox& msgBox = msgBox_;
  core::DeferredFailure failure;
  Watcher watcher(*this);
  SearchResult result;
  failure.Try([&] {
    ScaleSearch scaleSearch(*scales_, watcher, msgBox);
    result = search(scaleSearch);
  });
  failure.ReportDescription(msgBox);
  if (!watcher.IsAlive()) return;
  isSearching_ = false;
  if (result.outcome == SearchOutcome::kFound) AnnounceFound(result.name);
  txtSearch_->selectAll();
}

void frmSearch::AnnounceFound(const std::string& name) {
  txtSearch_->setAccessibleDescription(tr("Found: %1").arg(QString::fromStdString(name)));
}

void frmSearch::cmdSearch_Click() {
  RunAlone([this](ScaleSearch& search) {
    lblMessage_->setText({});
    return search.Search(SearchText());
  });
}

void frmSearch::FindNextScaleMatch(const std::string& SearchText) {
  RunAlone([this, &SearchText](ScaleSearch& search) {
    QWidget* const active = QApplication::activeWindow() != nullptr ? QApplication::activeWindow() : this;
    const QPointer<QWidget> form = active;
    // Kept: see docs/behaviour.md, FindNextScaleMatch differs from the button
    std::string tag = form->property(kTag).toString().toStdString();
    const std::string before = tag;
    SearchResult result = search.FindNext(SearchText, tag);
    if (!form.isNull() && tag != before) form->setProperty(kTag, QString::fromStdString(tag));
    return result;
  });
}

void frmSearch::cmdCancel_Click() {
  searchCancelled_ = true;
  stopRequested_ = true;
  hide();
}

bool frmSearch::Form_QueryUnload() {
  // Kept: see docs/behaviour.md, The search dialog hides instead of closing
  cmdCancel_Click();
  return false;
}

}  // namespace tonalith::search
