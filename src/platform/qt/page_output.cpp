// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/page_output.h"

#include <QFileInfo>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

#include "core/failure.h"
#include "platform/printer.h"
#include "platform/qt/messages.h"

namespace tonalith::platform {
namespace {

class PrinterOutput : public PageOutput {
 public:
  explicit PrinterOutput(std::unique_ptr<QPrinter> printer) : printer_(std::move(printer)) {}

  QPagedPaintDevice& Device() override { return *printer_; }
  void Finish() override {
    if (printer_->printerState() != QPrinter::Error) return;
    throw core::Failure(kPrinterError, {PrintingMessageId::kPageRefused, Destination().toStdString()});
  }
  void Discard() override { printer_->abort(); }
  [[nodiscard]] QString Destination() const override { return printer_->printerName(); }

 private:
  std::unique_ptr<QPrinter> printer_;
};

class PdfOutput : public PageOutput {
 public:
  PdfOutput(const QString& fileName, const QString& title, const QPageLayout& layout) : file_(fileName) {
    // Saving replaces an existing file, but must not replace a device or a folder.
    const QFileInfo there(fileName);
    if (there.exists() && !there.isFile()) throw CannotWrite(PrintingMessageId::kOtherFileThere);
    if (!file_.open(QIODevice::WriteOnly))
      throw CannotWrite(core::Message::Verbatim(file_.errorString().toStdString()));
    writer_ = std::make_unique<QPdfWriter>(&file_);
    writer_->setTitle(title);
    writer_->setCreator(QStringLiteral("Tonalith"));
    writer_->setPageLayout(layout);
  }

  QPagedPaintDevice& Device() override { return *writer_; }
  void Finish() override {
    writer_.reset();
    // Flush first: if the disk is full, commit alone would not report it.
    const bool isWritten = file_.error() == QFileDevice::NoError && file_.flush();
    if (!isWritten || !file_.commit()) throw CannotWrite(core::Message::Verbatim(file_.errorString().toStdString()));
  }
  void Discard() override { file_.cancelWriting(); }
  [[nodiscard]] QString Destination() const override { return file_.fileName(); }

 private:
  [[nodiscard]] core::Failure CannotWrite(const core::Message& why) const {
    return {kPrinterError, {PrintingMessageId::kFileNotWritten, file_.fileName().toStdString(), why}};
  }

  // Declared after file_, because the writer's destructor writes to it.
  QSaveFile file_;
  std::unique_ptr<QPdfWriter> writer_;
};

}  // namespace

std::unique_ptr<PageOutput> MakePrinterOutput(std::unique_ptr<QPrinter> printer) {
  return std::make_unique<PrinterOutput>(std::move(printer));
}

std::unique_ptr<PageOutput> MakePdfOutput(const QString& fileName, const QString& title, const QPageLayout& layout) {
  return std::make_unique<PdfOutput>(fileName, title, layout);
}

}  // namespace tonalith::platform
