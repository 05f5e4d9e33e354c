// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window's side of printing: composes the view in printPic, shows it in the print helper, and prints it on the
// printer that was chosen there. While the view is composed the window is not repainted, and whatever fails on the way,
// its controls are back afterwards; messages wait until then. Owned by the main window, which may be destroyed while
// the helper is open. User-interface thread.

#pragma once

#include <QPointer>
#include <functional>

#include "app/main_controls.h"
#include "core/deferred_failure.h"
#include "core/msg_box.h"
#include "platform/print_service.h"
#include "print/frm_print.h"
#include "print/print_picture_to_size.h"

namespace tonalith::app {

class MainWindowPrinting {
 public:
  struct Tools {
    platform::PrintService& printing;
    core::MsgBox& msgBox;
    /// Draws the staff of the current scale in the window.
    std::function<void()> scoreHandler;
  };

  /// `form` is the window; `controls` are its own.
  MainWindowPrinting(const MainControls& controls, QWidget& form, Tools tools);
  ~MainWindowPrinting();
  MainWindowPrinting(const MainWindowPrinting&) = delete;
  MainWindowPrinting& operator=(const MainWindowPrinting&) = delete;

  /// The Print button: shows the print helper and returns when it is closed. A helper that is shown already comes to
  /// the front.
  void cmdPrint_Click();
  /// Composes the view and prints it on one page.
  void PrintView(platform::Printer& printer);
  /// Prints the window as it stands on the screen: for a view that cannot be composed.
  void CaptureView(const print::PrintTools& tools);
  /// Unloads the print helper, if it is there. Nothing is printed.
  void Unload();

 private:
  class ComposedView;

  /// Whether there is a composed view at all; what failed on the way is pending.
  [[nodiscard]] bool ComposeView(core::DeferredFailure& failure);

  const MainControls& c_;
  QWidget& form_;
  Tools tools_;
  bool isComposing_ = false;
  QPointer<print::frmPrint> frmPrint_;
};

}  // namespace tonalith::app
