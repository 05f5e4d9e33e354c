// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The print helper: shows the page as it will come out, on A4 or Letter, landscape or portrait, and sends it to a
// printer or into a PDF file. The preview is made by the procedure that prints. A page that went to a printer closes
// the window; after a PDF file it stays. Escape and the close box cancel, which prints nothing. The window may be
// destroyed at any time, also while it asks for a printer. Failures are shown as their description. Owned by its parent
// or by whoever shows it; user-interface thread.

#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "core/deferred_messages.h"
#include "core/msg_box.h"
#include "platform/print_service.h"
#include "print/page_view.h"
#include "print/picture_box.h"
#include "print/print_fitting.h"
#include "windows/panel_button.h"

class QComboBox;
class QLabel;

namespace tonalith::print {

struct PrintOrder {
  platform::PrintService& printing;
  core::MsgBox& msgBox;
  /// The document's title, UTF-8.
  std::string title;
  PrintShares shares;
  /// Prints the page on a printer and reports its own failures.
  std::function<void(platform::Printer&)> print;
};

class frmPrint : public QDialog {
  Q_OBJECT

 public:
  /// Shows what stands on `page` now.
  frmPrint(PrintOrder order, const PictureBox& page, QWidget* parent);
  ~frmPrint() override;

  /// Returns when the window is closed or gone.
  void ShowModal();
  void BringToFront();

  void cmdPrint_Click();
  void cmdPdf_Click();
  void cmdCancel_Click();

  [[nodiscard]] platform::Paper ChosenPaper() const;

 protected:
  void showEvent(QShowEvent* event) override;
  bool event(QEvent* event) override;

 private:
  using Question = std::unique_ptr<platform::Printer> (platform::PrintService::*)(const platform::PrintJob&);
  enum class AfterPrinting { kClose, kStay };

  void MakeControls();
  void LayOut();
  void ApplyTheme();
  void UpdatePreview();
  /// What the preview had to say; the window may be gone afterwards.
  void ShowPreviewMessages();
  void LookForPrinter();
  /// What Enter does: printing, or saving where there is no printer. The focus goes along unless it was taken
  /// elsewhere.
  void ShowMainAction();
  void AskAndPrint(Question ask, AfterPrinting afterwards);
  void ShowStatus(const QString& text);
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
