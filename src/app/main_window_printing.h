// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Prints the main window: composes the page in printPic, shows it in the print helper, and prints it on the printer
// chosen there. While the page is composed the window is not repainted. Its controls are restored, also after a
// failure, before any message is shown. The main window may be destroyed while the helper is open.

#pragma once

#include <functional>

#include "app/main_controls.h"
#include "core/deferred_failure.h"
#include "core/msg_box.h"
#include "platform/print_service.h"
#include "print/frm_print.h"
#include "print/print_picture_to_size.h"
#include "windows/open_once.h"

namespace tonalith::app {

class MainWindowPrinting {
 public:
  struct Tools {
    platform::PrintService& printing;
    core::MsgBox& msgBox;
    /// Draws the staff of the current scale in the window; may throw core::Failure.
    std::function<void()> scoreHandler;
  };

  /// `form` is the main window, `controls` its controls.
  MainWindowPrinting(const MainControls& controls, QWidget& form, Tools tools);
  MainWindowPrinting(const MainWindowPrinting&) = delete;
  MainWindowPrinting& operator=(const MainWindowPrinting&) = delete;

  /// Shows the print helper and returns when it is closed. Brings an open helper to the front.
  void cmdPrint_Click();
  /// Composes the view and prints it on one page; shows failures as messages.
  void PrintView(platform::Printer& printer);
  /// Prints the window as on the screen; the fallback if the view cannot be composed.
  void CaptureView(const print::PrintTools& tools);
  /// Closes the print helper, if it is open, without printing.
  void Unload();

 private:
  class ComposedView;

  /// Returns whether there is a view, perhaps an incomplete one; a failure is left pending in `failure`.
  [[nodiscard]] bool ComposeView(core::DeferredFailure& failure);

  const MainControls& c_;
  QWidget& form_;
  Tools tools_;
  bool isComposing_ = false;
  windows::OpenOnce<print::frmPrint> frmPrint_;
};

}  // namespace tonalith::app
