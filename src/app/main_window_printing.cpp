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

// Kept: see docs/behaviour.md, The page is not centred.
constexpr print::PrintShares kShares{90, 15, 15};

/// Postpones user input: the window is not in its usual state.
void ProcessEvents() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

// Kept: see docs/behaviour.md, picTemp is a control.
void RemovePicTemp(QWidget& form) {
  for (QWidget* const left : form.findChildren<QWidget*>(QStringLiteral("picTemp"), Qt::FindDirectChildrenOnly)) {
    delete left;
  }
}

}  // namespace

/// Prepares the window for printing in the current scope: shows printPic, hides controls that are not printed, and
/// disables repainting. The destructor restores the window.
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
    // Kept: see docs/behaviour.md, Printing shows controls that it did not hide.
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

bool MainWindowPrinting::ComposeView(core::DeferredFailure& failure) {
  std::optional<PageComposer> composer;
  failure.Try([&] {
    composer.emplace(c_);
    composer->BeginPage();
  });
  if (failure.Pending()) return false;
  failure.Try([] { ProcessEvents(); });
  failure.Try([&] { tools_.scoreHandler(); });
  failure.Try([&] { composer->WriteStaff(); });
  failure.Try([&] { composer->DrawStringsAndFrets(); });
  failure.Try([&] { composer->WriteLabels(); });
  failure.Try([&] { composer->CopyNoteImages(&ProcessEvents); });
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
  failure.Try([] { ProcessEvents(); });
  failure.Try([&] { tools_.scoreHandler(); });
  isComposing_ = false;
  // A message box runs the event loop, which may destroy the window and this object.
  messages.ShowAll(msgBox);
  failure.ReportDescription(msgBox);
}

void MainWindowPrinting::CaptureView(const print::PrintTools& tools) {
  c_.printPic->hide();
  print::CapturePrint(tools, *c_.printPic->parentWidget(), *c_.printPic);
}

void MainWindowPrinting::cmdPrint_Click() {
  if (frmPrint_.Raise() || std::exchange(isComposing_, true)) return;
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
    helper = frmPrint_.Put(
        new print::frmPrint({tools_.printing, msgBox, PageTitle(c_), kShares, print}, *c_.printPic, &form_));
  });
  failure.ReportDescription(msgBox);
  // The window and this object may be destroyed while the helper is open.
  windows::RunModal(helper, [](const print::frmPrint&) {});
}

void MainWindowPrinting::Unload() { frmPrint_.Delete(); }

}  // namespace tonalith::app
