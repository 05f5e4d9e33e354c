// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/qt_print_service.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <algorithm>

#include "platform/qt/qt_page_printer.h"

namespace tonalith::platform {
namespace {

constexpr double kUsualBorder = 18;  // In points: a quarter of an inch.

/// Runs a dialog that may be destroyed together with its parent window. Returns whether it was accepted and still
/// exists.
bool IsAccepted(const QPointer<QDialog>& dialog) { return dialog->exec() == QDialog::Accepted && !dialog.isNull(); }

QMarginsF Border(const QMarginsF& least) {
  return {std::max(least.left(), kUsualBorder), std::max(least.top(), kUsualBorder),
          std::max(least.right(), kUsualBorder), std::max(least.bottom(), kUsualBorder)};
}

void WidenBorder(QPrinter& printer) {
  QPageLayout layout = printer.pageLayout();
  layout.setUnits(QPageLayout::Point);
  printer.setPageMargins(Border(layout.minimumMargins()), QPageLayout::Point);
}

bool UsesLetter(QLocale::Territory territory) {
  switch (territory) {
    case QLocale::UnitedStates:
    case QLocale::Canada:
    case QLocale::Mexico:
    case QLocale::Philippines:
    case QLocale::PuertoRico:
      return true;
    default:
      return false;
  }
}

std::unique_ptr<Printer> PdfPrinter(const QString& fileName, const QString& title, const QPageLayout& layout) {
  return std::make_unique<QtPagePrinter>(MakePdfOutput(fileName, title, layout));
}

/// The printer as configured by the dialog. "Print to File" becomes a PDF file written by MakePdfOutput.
std::unique_ptr<Printer> ChosenPrinter(std::unique_ptr<QPrinter> printer, const QString& title) {
  WidenBorder(*printer);
  if (printer->outputFormat() == QPrinter::PdfFormat) {
    return PdfPrinter(printer->outputFileName(), title, printer->pageLayout());
  }
  return std::make_unique<QtPagePrinter>(MakePrinterOutput(std::move(printer)));
}

}  // namespace

QPageLayout LayoutOf(const Paper& paper) {
  const QPageSize size(paper.size == PaperSize::kA4 ? QPageSize::A4 : QPageSize::Letter);
  const bool isLandscape = paper.orientation == PaperOrientation::kLandscape;
  return {size, isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait, Border({}), QPageLayout::Point};
}

std::unique_ptr<Printer> MakePdfPrinter(const std::string& fileName, const PrintJob& job) {
  return PdfPrinter(QString::fromStdString(fileName), QString::fromStdString(job.title), LayoutOf(job.paper));
}

QString PdfFileName(const QString& title) {
  QString name;
  for (const QChar c : title.simplified()) {
    const bool isUsable = c.isPrint() && !QStringLiteral("/\\:*?\"<>|").contains(c);
    name += isUsable ? c : QLatin1Char('-');
  }
  while (name.startsWith(QLatin1Char('.'))) name.remove(0, 1);
  // Below the limit of 255 bytes of file systems, in any script.
  name.truncate(200);
  while (name.toUtf8().size() > 200) name.chop(1);
  if (name.isEmpty()) name = QStringLiteral("Tonalith");
  return name + QStringLiteral(".pdf");
}

bool QtPrintService::HasPrinter() { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

PaperSize QtPrintService::UsualPaperSize() {
  return UsesLetter(QLocale::system().territory()) ? PaperSize::kLetter : PaperSize::kA4;
}

Sheet QtPrintService::SheetOf(const Paper& paper) {
  const QPageLayout layout = LayoutOf(paper);
  const QRectF full = layout.fullRect(QPageLayout::Point);
  const QRectF printable = layout.paintRect(QPageLayout::Point);
  return {full.width(), full.height(), {printable.left(), printable.top(), printable.width(), printable.height()}};
}

std::unique_ptr<Printer> QtPrintService::AskForPrinter(const PrintJob& job) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (!printerName_.isEmpty()) printer->setPrinterName(printerName_);
  const QString title = QString::fromStdString(job.title);
  // The dialog derives a file name from this title.
  printer->setDocName(QFileInfo(PdfFileName(title)).completeBaseName());
  printer->setCreator(QStringLiteral("Tonalith"));
  printer->setPageLayout(LayoutOf(job.paper));
  auto* const dialog = new QPrintDialog(printer.get(), QApplication::activeWindow());
  const QPointer<QDialog> guard(dialog);
  dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
  const bool isAccepted = IsAccepted(guard);
  delete guard.data();
  if (!isAccepted) return nullptr;
  printerName_ = printer->printerName();
  return ChosenPrinter(std::move(printer), title);
}

QString QtPrintService::SuggestedPdfFile(const QString& title) const {
  QString folder = pdfFolder_;
  if (folder.isEmpty()) folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (!QFileInfo(folder).isDir()) folder = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
  return folder + QLatin1Char('/') + PdfFileName(title);
}

std::unique_ptr<Printer> QtPrintService::AskForPdfFile(const PrintJob& job) {
  const QString title = QString::fromStdString(job.title);
  const QFileInfo suggested(SuggestedPdfFile(title));
  auto* const dialog = new QFileDialog(
      QApplication::activeWindow(), QCoreApplication::translate("tonalith::print::frmPrint", "Save as PDF"),
      suggested.path(), QCoreApplication::translate("tonalith::print::frmPrint", "PDF files (*.pdf)"));
  const QPointer<QDialog> guard(dialog);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QStringLiteral("pdf"));
  dialog->selectFile(suggested.fileName());
  const bool isAccepted = IsAccepted(guard);
  const QString fileName = isAccepted ? dialog->selectedFiles().value(0) : QString();
  delete guard.data();
  if (fileName.isEmpty()) return nullptr;
  pdfFolder_ = QFileInfo(fileName).path();
  return PdfPrinter(fileName, title, LayoutOf(job.paper));
}

}  // namespace tonalith::platform
