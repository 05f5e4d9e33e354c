// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The system's printers through Qt, and PDF files. The list of printers is loaded only by HasPrinter and AskForPrinter;
// paper and PDF files need no printer. Dialogs are modal to the active window.

#pragma once

#include <QPageLayout>
#include <QString>

#include "platform/print_service.h"

namespace tonalith::platform {

class QtPrintService : public PrintService {
 public:
  [[nodiscard]] bool HasPrinter() override;
  /// By the country of the system's locale.
  [[nodiscard]] PaperSize UsualPaperSize() override;
  /// With the border that printers usually cannot print on, a quarter of an inch.
  [[nodiscard]] Sheet SheetOf(const Paper& paper) override;
  /// Uses the printer's own border if that is wider.
  std::unique_ptr<Printer> AskForPrinter(const PrintJob& job) override;
  std::unique_ptr<Printer> AskForPdfFile(const PrintJob& job) override;

 private:
  [[nodiscard]] QString SuggestedPdfFile(const QString& title) const;

  /// The last choices, as defaults for the next dialog.
  QString printerName_;
  QString pdfFolder_;
};

/// The page layout with the usual border.
QPageLayout LayoutOf(const Paper& paper);

/// A printer that writes a PDF file without a dialog. Throws core::Failure if the file cannot be written.
std::unique_ptr<Printer> MakePdfPrinter(const std::string& fileName, const PrintJob& job);

/// Converts a document's title to a file name without folder.
QString PdfFileName(const QString& title);

}  // namespace tonalith::platform
