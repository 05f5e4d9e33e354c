// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The system's printers through Qt, and PDF files. The system is asked for its printers only when HasPrinter or
// AskForPrinter is called; paper and PDF files need no printer. Dialogs stand over the active window. Owned by main;
// user-interface thread.

#pragma once

#include <QPageLayout>
#include <QString>

#include "platform/print_service.h"

namespace tonalith::platform {

class QtPrintService : public PrintService {
 public:
  [[nodiscard]] bool HasPrinter() override;
  /// By the system's country.
  [[nodiscard]] PaperSize UsualPaperSize() override;
  /// With the border that printers usually cannot print on, a quarter of an inch.
  [[nodiscard]] Sheet SheetOf(const Paper& paper) override;
  /// The border is the printer's own where that is wider.
  std::unique_ptr<Printer> AskForPrinter(const PrintJob& job) override;
  std::unique_ptr<Printer> AskForPdfFile(const PrintJob& job) override;

 private:
  [[nodiscard]] QString SuggestedPdfFile(const QString& title) const;

  /// What was chosen last, for the next time.
  QString printerName_;
  QString pdfFolder_;
};

/// A sheet with the usual border.
QPageLayout LayoutOf(const Paper& paper);

/// A printer that writes a PDF file, without asking. Throws core::Failure when it cannot be written there.
std::unique_ptr<Printer> MakePdfPrinter(const std::string& fileName, const PrintJob& job);

/// A document's title as the name of a file, without its folder.
QString PdfFileName(const QString& title);

}  // namespace tonalith::platform
