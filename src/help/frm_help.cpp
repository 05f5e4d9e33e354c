// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/frm_help.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include "help/contents_panel.h"
#include "help/find_bar.h"
#include "help/help_browser.h"
#include "help/help_button.h"
#include "help/index_panel.h"
#include "help/messages.h"
#include "help/search_panel.h"
#include "paint/theme.h"

namespace tonalith::help {
namespace {

using Icon = HelpButton::Icon;

constexpr QSize kWantedSize(1060, 760);
constexpr int kPanelWidth = 280;

/// A thin line between parts of the window.
QFrame* MakeLine(QFrame::Shape shape, QWidget* parent) {
  auto* const line = new QFrame(parent);
  line->setFrameShape(shape);
  line->setFrameShadow(QFrame::Plain);
  line->setFixedHeight(1);
  line->setObjectName(QStringLiteral("HelpLine"));
  return line;
}

}  // namespace

frmHelp::frmHelp(core::MsgBox& msgBox, AddressOpener opener, QWidget* parent)
    : Window(QStringLiteral("frmHelp"), parent), msgBox_(msgBox), opener_(std::move(opener)) {
  setAttribute(Qt::WA_DeleteOnClose);
  contents_ = new ContentsPanel(this);
  index_ = new IndexPanel(this);
  search_ = new SearchPanel(this);
  page_ = new HelpBrowser(this);
  find_ = new FindBar(page_, this);
  MakeBar();
  LayOut();
  AddShortcuts();
  FinishConstruction();
  ChooseSize();
  connect(contents_, &ContentsPanel::TargetChosen, this, &frmHelp::GoTo);
  connect(index_, &IndexPanel::TargetChosen, this, &frmHelp::GoTo);
  connect(search_, &SearchPanel::PageChosen, this, &frmHelp::ShowFound);
  connect(page_, &HelpBrowser::LinkChosen, this, &frmHelp::FollowLink);
  connect(page_, &HelpBrowser::BackRequested, this, &frmHelp::GoBack);
  connect(page_, &HelpBrowser::ForwardRequested, this, &frmHelp::GoForward);
  connect(page_, &HelpBrowser::ZoomChanged, this, &frmHelp::ShowZoom);
  connect(find_, &FindBar::Closed, page_, qOverload<>(&QWidget::setFocus));
}

frmHelp::~frmHelp() = default;

void frmHelp::MakeBar() {
  bar_ = new QWidget(this);
  auto* const row = new QHBoxLayout(bar_);
  row->setContentsMargins(8, 6, 8, 6);
  row->setSpacing(2);
  const auto add = [&](Icon icon, const char* name, const QString& title, const QKeySequence& keys) {
    auto* const button = new HelpButton(icon, title, keys, bar_);
    button->setObjectName(QLatin1String(name));
    row->addWidget(button);
    return button;
  };
  back_ = add(Icon::kBack, "cmdBack", tr("Back"), Qt::ALT | Qt::Key_Left);
  forward_ = add(Icon::kForward, "cmdForward", tr("Forward"), Qt::ALT | Qt::Key_Right);
  HelpButton* const home = add(Icon::kHome, "cmdHome", tr("First page of the help"), Qt::ALT | Qt::Key_Home);
  row->addStretch(1);
  HelpButton* const smaller = add(Icon::kSmaller, "cmdSmaller", tr("Smaller text"), QKeySequence::ZoomOut);
  zoom_ = new QLabel(bar_);
  zoom_->setObjectName(QStringLiteral("lblZoom"));
  zoom_->setAlignment(Qt::AlignCenter);
  zoom_->setMinimumWidth(zoom_->fontMetrics().horizontalAdvance(QStringLiteral("0000 %")));
  row->addWidget(zoom_);
  HelpButton* const larger = add(Icon::kLarger, "cmdLarger", tr("Larger text"), QKeySequence::ZoomIn);
  row->addSpacing(10);
  HelpButton* const findButton = add(Icon::kFind, "cmdFind", tr("Find in this page"), QKeySequence::Find);
  connect(back_, &QAbstractButton::clicked, this, &frmHelp::GoBack);
  connect(forward_, &QAbstractButton::clicked, this, &frmHelp::GoForward);
  connect(home, &QAbstractButton::clicked, this, &frmHelp::GoHome);
  connect(smaller, &QAbstractButton::clicked, page_, [this] { page_->ZoomBy(-1); });
  connect(larger, &QAbstractButton::clicked, page_, [this] { page_->ZoomBy(1); });
  connect(findButton, &QAbstractButton::clicked, find_, &FindBar::Open);
  ShowZoom();
}

void frmHelp::LayOut() {
  tabs_ = new QTabWidget(this);
  tabs_->setObjectName(QStringLiteral("HelpTabs"));
  tabs_->setDocumentMode(true);
  tabs_->tabBar()->setExpanding(true);
  tabs_->setUsesScrollButtons(false);
  tabs_->addTab(contents_, tr("&Contents"));
  tabs_->addTab(index_, tr("&Index"));
  tabs_->addTab(search_, tr("&Search"));
  connect(tabs_, &QTabWidget::currentChanged, this, [this] { tabs_->currentWidget()->setFocus(); });
  tabs_->setMinimumWidth(tabs_->tabBar()->sizeHint().width() + 16);
  auto* const side = new QWidget(this);
  auto* const sideRows = new QVBoxLayout(side);
  sideRows->setContentsMargins(0, 0, 0, 0);
  sideRows->setSpacing(0);
  sideRows->addWidget(page_, 1);
  sideRows->addWidget(find_);
  splitter_ = new QSplitter(this);
  splitter_->addWidget(tabs_);
  splitter_->addWidget(side);
  splitter_->setStretchFactor(1, 1);
  splitter_->setChildrenCollapsible(false);
  splitter_->setHandleWidth(1);
  page_->setMinimumSize(280, 160);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(bar_);
  rows->addWidget(MakeLine(QFrame::HLine, this));
  rows->addWidget(splitter_, 1);
  setTabOrder(bar_, tabs_);
  setTabOrder(tabs_, page_);
}

void frmHelp::AddShortcuts() {
  const auto add = [this](const QKeySequence& keys, auto step) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, step);
  };
  add(Qt::ALT | Qt::Key_Left, [this] { GoBack(); });
  add(Qt::ALT | Qt::Key_Right, [this] { GoForward(); });
  add(Qt::ALT | Qt::Key_Home, [this] { GoHome(); });
  add(QKeySequence::Find, [this] { find_->Open(); });
  add(Qt::Key_F3, [this] { find_->FindNext(); });
  add(Qt::SHIFT | Qt::Key_F3, [this] { find_->FindPrevious(); });
  add(Qt::CTRL | Qt::Key_Plus, [this] { page_->ZoomBy(1); });
  add(Qt::CTRL | Qt::Key_Equal, [this] { page_->ZoomBy(1); });
  add(Qt::CTRL | Qt::Key_Minus, [this] { page_->ZoomBy(-1); });
  add(Qt::CTRL | Qt::Key_0, [this] { page_->ResetZoom(); });
  add(Qt::CTRL | Qt::Key_W, [this] { close(); });
}

void frmHelp::ApplyTheme() {
  QPalette lines = palette();
  lines.setColor(QPalette::WindowText, paint::OutlineColour(palette()));
  for (auto* const line : findChildren<QFrame*>(QStringLiteral("HelpLine"))) line->setPalette(lines);
}

void frmHelp::ChooseSize() {
  const QRect free = (parentWidget() != nullptr ? parentWidget()->screen() : screen())->availableGeometry();
  resize(kWantedSize.boundedTo(free.size() * 0.92));
  splitter_->setSizes({kPanelWidth, width() - kPanelWidth});
}

void frmHelp::ShowBook(std::shared_ptr<const HelpBook> book) {
  book_ = std::move(book);
  setWindowTitle(QString::fromStdString(book_->Title()));
  history_.Forget();
  find_->Close();
  contents_->SetBook(*book_);
  index_->SetBook(*book_);
  search_->SetBook(book_);
  tabs_->setCurrentWidget(contents_);
  GoTo(book_->DefaultTarget());
  page_->setFocus();
}

void frmHelp::GoTo(const HelpTarget& target) {
  history_.Leave(page_->Scroll());
  history_.Visit(target);
  ShowStop();
}

void frmHelp::GoBack() {
  history_.Leave(page_->Scroll());
  history_.GoBack();
  ShowStop();
}

void frmHelp::GoForward() {
  history_.Leave(page_->Scroll());
  history_.GoForward();
  ShowStop();
}

void frmHelp::GoHome() { GoTo(book_->DefaultTarget()); }

void frmHelp::ShowStop() {
  const HelpHistory::Stop stop = history_.Current();
  page_->ShowPage(book_, stop.target);
  if (stop.scroll >= 0) page_->SetScroll(stop.scroll);
  contents_->ShowTarget(stop.target);
  back_->setEnabled(history_.CanGoBack());
  forward_->setEnabled(history_.CanGoForward());
  page_->setAccessibleDescription(QString::fromStdString(book_->TitleOf(stop.target.page)));
  find_->PageChanged();
}

void frmHelp::ShowFound(const HelpTarget& target, const QStringList& words) {
  if (find_->isVisible()) find_->Close();
  GoTo(target);
  page_->Finder().HighlightWords(words);
}

void frmHelp::FollowLink(const std::string& link) {
  const HelpLink followed = book_->Follow(CurrentTarget().page, link);
  switch (followed.kind) {
    case HelpLink::Kind::kInside:
    case HelpLink::Kind::kMissing:
      return GoTo(followed.target);
    case HelpLink::Kind::kOutside:
      return ConfirmAndOpen(followed.address);
    case HelpLink::Kind::kRefused:
      msgBox_.Show({MessageId::kLinkRefused, followed.address}, core::MsgBoxStyle::kExclamation, {});
      return;
  }
}

void frmHelp::ConfirmAndOpen(const std::string& address) {
  using core::MsgBoxStyle;
  // The message box runs the event loop, which may destroy this window: use copies.
  core::MsgBox& msgBox = msgBox_;
  const AddressOpener opener = opener_;
  const MsgBoxStyle style = MsgBoxStyle::kYesNo | MsgBoxStyle::kQuestion | MsgBoxStyle::kDefaultButton2;
  const auto answer = msgBox.Show({MessageId::kLinkLeadsOut, address}, style, {});
  if (answer != core::MsgBoxAnswer::kYes) return;
  if (!opener(QUrl(QString::fromStdString(address)))) {
    msgBox.Show({MessageId::kAddressNotOpened, address}, MsgBoxStyle::kExclamation, {});
  }
}

void frmHelp::Escape() {
  if (find_->isVisible()) {
    find_->Close();
  } else {
    Window::Escape();
  }
}

void frmHelp::ShowZoom() {
  const int percent = qRound(page_->Zoom() * 100);
  zoom_->setText(QStringLiteral("%1 %").arg(percent));
}

}  // namespace tonalith::help
