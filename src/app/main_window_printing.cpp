// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_window_printing.h"

#include <QCoreApplication>
#include <array>
#include <optional>
#include <utility>

#include "app/page_composer.h"
#include "core/deferred_messages.h"
#include "print/print_picture_to_size.h"

namespace tonalith::app {
namespace {

constexpr print::PrintShares kShares{90, 15, 15};

/// Keys and clicks wait: the window is not as they expect it.
void LetEventsRun() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

void RemovePicTemp(QWidget& form) {
  for (QWidget* const left : form.findChildren<QWidget*>(QStringLiteral("picTemp"), Qt::FindDirectChildrenOnly)) {
    delete left;
  }
}

}  // namespace

/// The window while its view is composed: printPic is there, what does not belong on paper is not, and nothing of this
/// reaches the screen. The destructor puts everything back.
class MainWindowPrinting::ComposedView {
 public:
  ComposedView(const MainControls& controls, QWidget& form)
      : c_(controls),
        form_(form),
        focus_(form.focusWidget()),
        updates_(form.updatesEnabled()),
        wasInstallShown_(!controls.lblInstall->isHidden()) {
    form_.setUpdatesEnabled(false);
    c_.printPic->lower();
    c_.printPic->show();
    for (QWidget* const control : HiddenOnPaper()) control->hide();
    c_.lblInstall->hide();
  }
  ~ComposedView() {
    for (QWidget* const control : HiddenOnPaper()) control->show();
    c_.lblInstall->setVisible(wasInstallShown_);
    c_.Data1->show();
    c_.cmbTranspose->show();
    c_.printPic->hide();
    if (!focus_.isNull()) focus_->setFocus(Qt::OtherFocusReason);
    form_.setUpdatesEnabled(updates_);
  }
  ComposedView(const ComposedView&) = delete;
  ComposedView& operator=(const ComposedView&) = delete;

 private:
  [[nodiscard]] std::array<QWidget*, 5> HiddenOnPaper() const {
    return {c_.cmdUpdate, c_.cmdPrint, c_.cmdEdit, c_.cmdListen, c_.lblStatus};
  }

  const MainControls& c_;
  QWidget& form_;
  QPointer<QWidget> focus_;
  bool updates_;
  bool wasInstallShown_;
};

MainWindowPrinting::MainWindowPrinting(const MainControls& controls, QWidget& form, Tools tools)
    : c_(controls), form_(form), tools_(std::move(tools)) {}

MainWindowPrinting::~MainWindowPrinting() { Unload(); }

bool MainWindowPrinting::ComposeView(core::DeferredFailure& failure) {
  std::optional<PageComposer> composer;
  failure.Try([&] {
    composer.emplace(c_);
    composer->BeginPage();
  });
  if (failure.Pending()) return false;
  failure.Try([] { LetEventsRun(); });
  failure.Try([&] { tools_.scoreHandler(); });
  failure.Try([&] { composer->WriteStaff(); });
  failure.Try([&] { composer->DrawStringsAndFrets(); });
  failure.Try([&] { composer->WriteLabels(); });
  failure.Try([&] { composer->CopyNoteImages(&LetEventsRun); });
  return true;
}

void MainWindowPrinting::PrintView(platform::Printer& printer) {
  if (std::exchange(isComposing_, true)) return;
  core::MsgBox& msgBox = tools_.msgBox;
  core::DeferredFailure failure;
  core::DeferredMessages messages;
  {
    const ComposedView view(c_, form_);
    if (ComposeView(failure)) {
      print::PrintPictureToSize({printer, messages}, form_, *c_.printPic, kShares.size, kShares.vertical,
                                kShares.horizontal);
    } else {
      CaptureView({printer, messages});
    }
    failure.Try([&] { RemovePicTemp(form_); });
  }
  failure.Try([] { LetEventsRun(); });
  failure.Try([&] { tools_.scoreHandler(); });
  isComposing_ = false;
  // The window, and this desk with it, may go while a message is shown.
  messages.ShowAll(msgBox);
  failure.ReportDescription(msgBox);
}

void MainWindowPrinting::CaptureView(const print::PrintTools& tools) {
  c_.printPic->hide();
  print::CapturePrint(tools, *c_.printPic->parentWidget(), *c_.printPic);
}

void MainWindowPrinting::cmdPrint_Click() {
  if (!frmPrint_.isNull()) {
    frmPrint_->BringToFront();
    return;
  }
  if (std::exchange(isComposing_, true)) return;
  core::MsgBox& msgBox = tools_.msgBox;
  core::DeferredFailure failure;
  {
    const ComposedView view(c_, form_);
    static_cast<void>(ComposeView(failure));
  }
  isComposing_ = false;
  QPointer<print::frmPrint> helper;
  failure.Try([&] {
    const auto print = [this](platform::Printer& printer) { PrintView(printer); };
    frmPrint_ = new print::frmPrint({tools_.printing, msgBox, PageTitle(c_), kShares, print}, *c_.printPic, &form_);
    helper = frmPrint_;
  });
  failure.ReportDescription(msgBox);
  // The window, and this desk with it, may go while the helper is shown.
  if (!helper.isNull()) helper->ShowModal();
  delete helper.data();
}

void MainWindowPrinting::Unload() { delete frmPrint_.data(); }

}  // namespace tonalith::app
