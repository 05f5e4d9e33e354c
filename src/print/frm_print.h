// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The print helper: a preview of the page on A4 or Letter, landscape or portrait, which it sends to a printer or saves
// as a PDF file. The preview uses the procedure that prints. Printing closes the window; saving does not. Escape and
// the close button cancel without printing. The window may be destroyed at any time, also while it waits for the dialog
// of the system. Failures are shown as their description.

#pragma once

#include <functional>
#include <string>

#include "core/deferred_messages.h"
#include "core/message.h"
#include "core/msg_box.h"
#include "platform/print_service.h"
#include "print/page_view.h"
#include "print/picture_box.h"
#include "print/print_fitting.h"
#include "windows/panel_button.h"
#include "windows/window.h"

class QComboBox;
class QLabel;

namespace tonalith::print {

struct PrintOrder {
  platform::PrintService& printing;
  core::MsgBox& msgBox;
  /// The document's title, UTF-8.
  std::string title;
  PrintShares shares;
  /// Prints the page on a printer and shows its own failures.
  std::function<void(platform::Printer&)> print;
};

class frmPrint : public windows::Window<QDialog> {
  Q_OBJECT

 public:
  /// Shows the current content of `page`.
  frmPrint(PrintOrder order, const PictureBox& page, QWidget* parent);
  ~frmPrint() override;

  /// Returns when the window is closed or destroyed.
  void ShowModal();

  void cmdPrint_Click();
  void cmdPdf_Click();
  void cmdCancel_Click();

  [[nodiscard]] platform::Paper ChosenPaper() const;

 protected:
  void ApplyTheme() override;
  void showEvent(QShowEvent* event) override;

 private:
  using RequestPrinter = std::unique_ptr<platform::Printer> (platform::PrintService::*)(const platform::PrintJob&);
  enum class AfterPrinting { kClose, kStay };

  void MakeControls();
  void LayOut();
  void UpdatePreview();
  /// Shows the messages of the preview; this may destroy the window.
  void ShowPreviewMessages();
  void DetectPrinter();
  /// Makes printing the default button, or saving if there is no printer. The focus follows if it is on the other
  /// button.
  void ShowMainAction();
  void AskAndPrint(RequestPrinter ask, AfterPrinting afterwards);
  void ShowStatus(const core::Message& status);
  void ShowPaper();
  [[nodiscard]] QString PaperText() const;

  PrintOrder order_;
  core::DeferredMessages previewMessages_;
  bool isAsking_ = false;
  bool isPrinterKnown_ = false;
  bool hasPrinter_ = true;
  PageView* picture1_ = nullptr;
  PictureBox* picPage_ = nullptr;
  QLabel* lblPaper_ = nullptr;
  QComboBox* cmbPaper_ = nullptr;
  QLabel* lblOrientation_ = nullptr;
  QComboBox* cmbOrientation_ = nullptr;
  QLabel* lblStatus_ = nullptr;
  windows::PanelButton* cmdPrint_ = nullptr;
  windows::PanelButton* cmdPdf_ = nullptr;
  windows::PanelButton* cmdCancel_ = nullptr;
};

}  // namespace tonalith::print
