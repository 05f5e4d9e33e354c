// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/qt_print_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/failure.h"
#include "support/pdf_file.h"
#include "support/temp_folder.h"
#include "support/text_message.h"

namespace tonalith::platform {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A grey rectangle; can throw while it is painted.
class Patch : public PrintablePicture {
 public:
  explicit Patch(bool breaks = false) : breaks_(breaks) {}
  [[nodiscard]] double Width() const override { return 100; }
  [[nodiscard]] double Height() const override { return 100; }
  void PaintOn(QPainter& painter) const override {
    painter.fillRect(QRectF(0, 0, 100, 100), Qt::gray);
    if (breaks_) throw core::Failure(5, tests::TextMessage("the patch broke"));
  }

 private:
  bool breaks_;
};

std::string ContentOf(const std::string& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

/// During its lifetime no file of this process can exceed a hundred bytes, as on a full disk.
class SmallFiles {
 public:
  SmallFiles() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{100, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallFiles() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

template <class Dialog>
Dialog* Shown() {
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    if (auto* const dialog = qobject_cast<Dialog*>(widget); dialog != nullptr && dialog->isVisible()) return dialog;
  }
  return nullptr;
}

class QtPrintServiceTest : public testing::Test {
 protected:
  static constexpr Paper kPaper{PaperSize::kA4, PaperOrientation::kLandscape};

  QtPrintServiceTest() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
  ~QtPrintServiceTest() override { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false); }

  static std::unique_ptr<Printer> ToFile(const std::string& file) { return MakePdfPrinter(file, {"A page", kPaper}); }
  static void Paint(Printer& printer, bool breaks = false) {
    printer.PaintPicture(std::make_shared<Patch>(breaks), {0, 0, 1000, 1000});
  }
  /// Calls `act` on the dialog after it is shown.
  template <class Dialog, class Act>
  static void Then(Act act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* const dialog = Shown<Dialog>();
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
    });
  }

  tests::TempFolder temp_;
  QtPrintService service_;
};

TEST_F(QtPrintServiceTest, PrintableAreaIsTheSheetWithoutAQuarterOfAnInch) {
  const Sheet sheet = service_.SheetOf({PaperSize::kLetter, PaperOrientation::kPortrait});
  EXPECT_EQ(sheet.width, 612);
  EXPECT_EQ(sheet.height, 792);
  EXPECT_EQ(sheet.printable, (PrintRect{18, 18, 576, 756}));
  const Sheet lying = service_.SheetOf(kPaper);
  EXPECT_EQ(lying.width, 842);
  EXPECT_EQ(lying.height, 595);
}

TEST_F(QtPrintServiceTest, PrinterMeasuresInTwipsAndInDots) {
  const auto printer = MakePdfPrinter(temp_ / "page.pdf", {"", {PaperSize::kLetter, PaperOrientation::kPortrait}});
  EXPECT_DOUBLE_EQ(printer->ScaleWidth(), 576 * 20);
  EXPECT_DOUBLE_EQ(printer->ScaleHeight(), 756 * 20);
  printer->SetScaleMode(PrinterScaleMode::kPixels);
  EXPECT_DOUBLE_EQ(printer->ScaleWidth(), 8 * printer->DotsPerInch());
  EXPECT_GE(printer->DotsPerInch(), 600);
}

TEST_F(QtPrintServiceTest, FileExistsAfterTheEndOfTheDocument) {
  const std::string file = temp_ / "page.pdf";
  const auto printer = ToFile(file);
  Paint(*printer);
  EXPECT_FALSE(fs::exists(file));
  EXPECT_FALSE(printer->IsEnded());
  printer->EndDoc();
  EXPECT_TRUE(printer->IsEnded());
  EXPECT_EQ(printer->Destination(), file);
  EXPECT_EQ(tests::PdfFile(file).Info("Title"), "A page");
}

TEST_F(QtPrintServiceTest, UnfinishedDocumentDoesNotChangeTheOldFile) {
  const std::string file = temp_.Write("page.pdf", "old");
  Paint(*ToFile(file));
  EXPECT_EQ(ContentOf(file), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(temp_.Path()), fs::directory_iterator()), 1);
}

TEST_F(QtPrintServiceTest, EndWithoutAPicturePrintsNothing) {
  const std::string file = temp_ / "page.pdf";
  const auto printer = ToFile(file);
  printer->EndDoc();
  EXPECT_FALSE(printer->IsEnded());
  EXPECT_FALSE(fs::exists(file));
}

TEST_F(QtPrintServiceTest, PictureThatThrowsIsNotPrinted) {
  const std::string file = temp_ / "page.pdf";
  const auto printer = ToFile(file);
  EXPECT_THROW(Paint(*printer, true), core::Failure);
  printer->EndDoc();
  EXPECT_FALSE(printer->IsEnded());
  EXPECT_FALSE(fs::exists(file));
}

TEST_F(QtPrintServiceTest, UnwritableFileIsAFailureWithItsName) {
  const std::string file = temp_ / "no folder/page.pdf";
  try {
    ToFile(file);
    FAIL() << "no failure";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.Number(), 482);
    EXPECT_THAT(failure.Description(), HasSubstr("The file " + file + " could not be written: "));
  }
}

TEST_F(QtPrintServiceTest, FullDiskIsAFailureAndKeepsTheOldFile) {
  const std::string file = temp_.Write("page.pdf", "old");
  const auto printer = ToFile(file);
  {
    const SmallFiles small;
    Paint(*printer);
    EXPECT_THROW(printer->EndDoc(), core::Failure);
  }
  EXPECT_FALSE(printer->IsEnded());
  EXPECT_EQ(ContentOf(file), "old");
}

TEST_F(QtPrintServiceTest, FolderWithThatNameIsAFailureAndStays) {
  fs::create_directory(temp_.Path() / "page.pdf");
  EXPECT_THROW(ToFile(temp_ / "page.pdf"), core::Failure);
  EXPECT_TRUE(fs::is_directory(temp_.Path() / "page.pdf"));
}

TEST_F(QtPrintServiceTest, DeviceWithThatNameIsAFailureAndStays) {
  if (!fs::is_character_file("/dev/null")) GTEST_SKIP() << "no device to try";
  EXPECT_THROW(ToFile("/dev/null"), core::Failure);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(QtPrintServiceTest, CancelledDialogsReturnNoPrinter) {
  Then<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(service_.AskForPrinter({"A page", kPaper}), nullptr);
  Then<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(service_.AskForPdfFile({"A page", kPaper}), nullptr);
}

TEST_F(QtPrintServiceTest, DialogDestroyedWithItsWindowReturnsNoPrinter) {
  Then<QPrintDialog>([](QPrintDialog& dialog) { delete &dialog; });
  EXPECT_EQ(service_.AskForPrinter({"A page", kPaper}), nullptr);
  Then<QFileDialog>([](QFileDialog& dialog) { delete &dialog; });
  EXPECT_EQ(service_.AskForPdfFile({"A page", kPaper}), nullptr);
}

TEST_F(QtPrintServiceTest, SaveAsPdfSuggestsTheTitleAndAddsTheExtension) {
  Then<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_THAT(dialog.selectedFiles().value(0).toStdString(), testing::EndsWith("/Dorian in F#.pdf"));
    dialog.selectFile(QString::fromStdString(temp_ / "chosen"));
    static_cast<QDialog&>(dialog).accept();
  });
  const auto printer = service_.AskForPdfFile({"Dorian in F#", kPaper});
  ASSERT_NE(printer, nullptr);
  Paint(*printer);
  printer->EndDoc();
  EXPECT_TRUE(fs::exists(temp_.Path() / "chosen.pdf"));
}

TEST_F(QtPrintServiceTest, SystemDialogPrintsToAPdfFile) {
  const std::string file = temp_ / "page.pdf";
  Then<QPrintDialog>([&](QPrintDialog& dialog) {
    EXPECT_TRUE(dialog.testOption(QAbstractPrintDialog::PrintToFile));
    EXPECT_EQ(dialog.printer()->pageLayout().orientation(), QPageLayout::Landscape);
    const auto* const printers = dialog.findChild<QComboBox*>(QStringLiteral("printers"));
    ASSERT_NE(printers, nullptr);
    EXPECT_GE(printers->findText(QStringLiteral("Print to File (PDF)")), 0);
    EXPECT_EQ(dialog.printer()->docName().toStdString(), "6-9 in F#") << "what the dialog makes a file's name of";
    dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
    dialog.printer()->setOutputFileName(QString::fromStdString(file));
    dialog.done(QDialog::Accepted);
  });
  const auto printer = service_.AskForPrinter({"6/9 in F#", kPaper});
  ASSERT_NE(printer, nullptr);
  EXPECT_NEAR(printer->ScaleWidth(), (842 - 36) * 20, 2);
  Paint(*printer);
  printer->EndDoc();
  EXPECT_EQ(tests::PdfFile(file).Info("Title"), "6/9 in F#");
}

TEST_F(QtPrintServiceTest, FileNamesAreUsableEverywhere) {
  EXPECT_EQ(PdfFileName(QStringLiteral("Dorian in D")).toStdString(), "Dorian in D.pdf");
  EXPECT_EQ(PdfFileName(QStringLiteral("  6/9 \"sus\"\n*chord? in C ")).toStdString(), "6-9 -sus- -chord- in C.pdf");
  EXPECT_EQ(PdfFileName(QStringLiteral("..")).toStdString(), "Tonalith.pdf");
  EXPECT_EQ(PdfFileName({}).toStdString(), "Tonalith.pdf");
  EXPECT_LE(PdfFileName(QString(300, QChar(0x4E00))).toUtf8().size(), 204);
}

}  // namespace
}  // namespace tonalith::platform
