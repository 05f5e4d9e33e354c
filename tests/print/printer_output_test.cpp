// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The output to a printer, tested with a QPrinter that writes into a file: its states are the same.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPainter>
#include <QPrinter>
#include <filesystem>

#include "core/failure.h"
#include "platform/qt/page_output.h"
#include "support/temp_folder.h"

namespace tonalith::platform {
namespace {

class PrinterOutput : public testing::Test {
 protected:
  /// Creates the output and paints a page on it, if the printer accepts one.
  std::unique_ptr<PageOutput> Painted(const std::string& file) {
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(file));
    printer_ = printer.get();
    auto output = MakePrinterOutput(std::move(printer));
    QPainter painter;
    if (painter.begin(&output->Device())) painter.fillRect(QRect(0, 0, 50, 50), Qt::gray);
    return output;
  }

  tests::TempFolder temp_;
  QPrinter* printer_ = nullptr;
};

TEST_F(PrinterOutput, SendsThePageThatWasPainted) {
  const std::string file = (temp_.Path() / "page.pdf").string();
  const auto output = Painted(file);
  EXPECT_NO_THROW(output->Finish());
  EXPECT_GT(std::filesystem::file_size(file), 100U);
  EXPECT_EQ(output->Destination(), printer_->printerName());
}

TEST_F(PrinterOutput, ReportsThePrinterThatRefusedThePage) {
  const auto output = Painted((temp_.Path() / "no such folder" / "page.pdf").string());
  ASSERT_EQ(printer_->printerState(), QPrinter::Error);
  try {
    output->Finish();
    FAIL() << "taken";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.Description(),
              "The printer " + printer_->printerName().toStdString() + " did not take the page.");
  }
}

TEST_F(PrinterOutput, CancelsAPageWithoutFailing) {
  const auto output = Painted((temp_.Path() / "page.pdf").string());
  EXPECT_NO_THROW(output->Discard());
}

}  // namespace
}  // namespace tonalith::platform
