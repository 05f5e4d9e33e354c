// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/frm_print.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QPointer>
#include <QTest>
#include <memory>

#include "core/failure.h"
#include "paint/colours.h"
#include "print/print_picture_to_size.h"
#include "support/ink.h"
#include "support/recording_msg_box.h"
#include "support/scripted_printer.h"
#include "windows/panel_button.h"

namespace tonalith::print {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Message = tests::RecordingMsgBox::Message;

/// The print helper with a page of 1000 x 500 pixels that is a black frame.
class FrmPrintTest : public testing::Test {
 protected:
  FrmPrintTest() {
    page_.resize(1000, 500);
    paint::DrawingSurface& surface = page_.Surface();
    surface.SetScaleMode(paint::ScaleMode::kPixels);
    for (int row = 0; row < 20; ++row) {
      surface.Line(0, row, 1000, row);
      surface.Line(0, 480 + row, 1000, 480 + row);
    }
  }
  ~FrmPrintTest() override { QApplication::setPalette(QPalette()); }

  frmPrint& Show() {
    const auto print = [this](platform::Printer& printer) {
      ++prints_;
      PrintPictureToSize({printer, box_}, host_, page_, 90, 15, 15);
    };
    form_ = new frmPrint({service_, box_, "Dorian in D", {90, 15, 15}, print}, page_, nullptr);
    form_->show();
    QCoreApplication::processEvents();
    return *form_;
  }
  void TearDown() override { delete form_.data(); }

  template <class Widget>
  Widget& Find(const char* name) {
    return *form_->findChild<Widget*>(QLatin1String(name));
  }
  std::string Status() { return Find<QLabel>("lblStatus").text().toStdString(); }
  void Click(const char* name) { QTest::mouseClick(&Find<QAbstractButton>(name), Qt::LeftButton); }
  void Choose(const char* box, int index) { Find<QComboBox>(box).setCurrentIndex(index); }
  PageView& Picture1() { return Find<PageView>("Picture1"); }
  platform::PrintRect Place() { return Picture1().Painted().at(0).place; }

  tests::RecordingMsgBox box_;
  tests::PrintScript script_;
  tests::ScriptedPrintService service_{script_};
  QWidget host_;
  PictureBox page_{QStringLiteral("printPic"), nullptr};
  QPointer<frmPrint> form_;
  int prints_ = 0;
};

TEST_F(FrmPrintTest, ShowsThePageAsItPrints) {
  Show();
  ASSERT_THAT(Picture1().Painted(), SizeIs(1));
  // A4 landscape: the printable area is 806 x 559 points.
  EXPECT_DOUBLE_EQ(Place().width, 806 * 0.9);
  EXPECT_DOUBLE_EQ(Place().left, 806 * 0.1 * 0.15);
  EXPECT_DOUBLE_EQ(Place().top, (559 - 806 * 0.45) * 0.15);
  EXPECT_EQ(Status(), "One page, A4, landscape.");
  EXPECT_EQ(Picture1().accessibleName().toStdString(), "Preview of the page: Dorian in D, A4, landscape");
  EXPECT_EQ(form_->findChild<PictureBox*>(QStringLiteral("picTemp")), nullptr);
}

TEST_F(FrmPrintTest, PaintsThePageOnTheSheetAtItsShares) {
  Show();
  const QImage dots = Picture1().grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QRectF sheet = Picture1().SheetRect();
  const QRect ink = tests::InkBox(dots, sheet.toRect());
  EXPECT_NEAR((ink.left() - sheet.left()) / sheet.width(), (18 + Place().left) / 842, 0.005);
  EXPECT_NEAR((ink.top() - sheet.top()) / sheet.height(), (18 + Place().top) / 595, 0.005);
  EXPECT_NEAR(ink.width() / sheet.width(), Place().width / 842, 0.005);
}

TEST_F(FrmPrintTest, Shape2OutlinesThePrintableArea) {
  Show();
  const QRectF sheet = Picture1().SheetRect();
  const QRect shape = Find<QWidget>("Shape2").geometry();
  const double factor = sheet.width() / 842;
  EXPECT_NEAR(shape.left(), sheet.left() + 18 * factor, 1.5);
  EXPECT_NEAR(shape.width(), 806 * factor, 1.5);
  EXPECT_NEAR(shape.height(), 559 * factor, 1.5);
}

TEST_F(FrmPrintTest, ContentHasEqualMarginsOnBothSides) {
  Show();
  const QMargins margins = form_->layout()->contentsMargins();
  EXPECT_EQ(margins.left(), margins.right());
  EXPECT_EQ(Picture1().geometry().left(), margins.left());
  EXPECT_EQ(Find<QLabel>("lblStatus").geometry().left(), margins.left());
  EXPECT_EQ(form_->width() - 1 - Find<QWidget>("cmdCancel").geometry().right(), margins.right());
}

TEST_F(FrmPrintTest, FollowsPaperAndOrientation) {
  Show();
  Choose("cmbPaper", 1);
  EXPECT_DOUBLE_EQ(Place().width, (792 - 36) * 0.9);
  Choose("cmbOrientation", 1);
  EXPECT_DOUBLE_EQ(Place().width, (612 - 36) * 0.9);
  EXPECT_EQ(Status(), "One page, Letter, portrait.");
  EXPECT_GT(Picture1().SheetRect().height(), Picture1().SheetRect().width());
}

TEST_F(FrmPrintTest, StartsWithTheUsualPaper) {
  service_.usualPaperSize = platform::PaperSize::kLetter;
  Show();
  EXPECT_EQ(form_->ChosenPaper(),
            (platform::Paper{platform::PaperSize::kLetter, platform::PaperOrientation::kLandscape}));
}

TEST_F(FrmPrintTest, PrintOpensTheDialogPrintsOnceAndCloses) {
  Show();
  Choose("cmbOrientation", 1);
  Click("cmdPrint");
  EXPECT_THAT(script_.Record(), HasSubstr("ask printer \"Dorian in D\" A4 portrait\n"));
  EXPECT_EQ(script_.pages, 1);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(form_->result(), QDialog::Accepted);
}

TEST_F(FrmPrintTest, CancellingTheSystemDialogPrintsNothingAndStaysOpen) {
  service_.userCancels = true;
  Show();
  Click("cmdPrint");
  Click("cmdPdf");
  EXPECT_EQ(prints_, 0);
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(Status(), "One page, A4, landscape.");
}

TEST_F(FrmPrintTest, SavingAsPdfStaysOpenAndShowsTheFile) {
  Show();
  Click("cmdPdf");
  EXPECT_EQ(script_.pages, 1);
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(Status(), "Saved as Scripted printer");
  EXPECT_EQ(Find<QAbstractButton>("cmdCancel").text().toStdString(), "Close");
}

TEST_F(FrmPrintTest, FailingPrinterIsReportedAndTheWindowStaysOpen) {
  script_.Break("paint");
  Show();
  Click("cmdPrint");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"paint broke", core::MsgBoxStyle::kOkOnly, ""}));
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(Status(), "Nothing was printed.");
  script_.Repair();
  Click("cmdPrint");
  EXPECT_EQ(script_.pages, 1);
}

TEST_F(FrmPrintTest, FailingDialogIsReported) {
  script_.Break("ask printer");
  Show();
  Click("cmdPrint");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"ask printer broke", core::MsgBoxStyle::kOkOnly, ""}));
  EXPECT_EQ(prints_, 0);
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(FrmPrintTest, FailureAfterASavedPageReplacesTheStatus) {
  for (const char* const step : {"ask pdf", "paint"}) {
    Show();
    Click("cmdPdf");
    ASSERT_EQ(Status(), "Saved as Scripted printer");
    script_.Break(step);
    Click("cmdPdf");
    EXPECT_EQ(Status(), "Nothing was printed.") << step;
    EXPECT_THAT(box_.Messages(), SizeIs(1)) << step;
    box_.Forget();
    script_.Repair();
    delete form_.data();
  }
}

TEST_F(FrmPrintTest, WithoutAPrinterTheStatusShowsItAndPdfStillWorks) {
  service_.hasPrinter = false;
  Show();
  EXPECT_EQ(Status(), "One page, A4, landscape. No printer is set up here; the page can be saved as a PDF file.");
  Click("cmdPdf");
  EXPECT_EQ(script_.pages, 1);
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(FrmPrintTest, WithoutAPrinterEnterSavesThePage) {
  service_.hasPrinter = false;
  Show();
  QTest::keyClick(form_, Qt::Key_Return);
  EXPECT_EQ(script_.pages, 1);
  EXPECT_TRUE(form_->isVisible()) << "printing would have closed the window";
  const auto kindOf = [this](const char* name) {
    return form_->findChild<windows::PanelButton*>(QLatin1String(name))->ButtonKind();
  };
  EXPECT_EQ(kindOf("cmdPdf"), windows::PanelButton::Kind::kMainAction);
  EXPECT_EQ(kindOf("cmdPrint"), windows::PanelButton::Kind::kOrdinary);
}

TEST_F(FrmPrintTest, SystemThatCannotListItsPrintersHasNone) {
  script_.Break("has printer");
  script_.Break("usual paper");
  Show();
  EXPECT_THAT(Status(), HasSubstr("No printer is set up here"));
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(FrmPrintTest, EscapeAndCancelPrintNothing) {
  Show();
  QTest::keyClick(form_, Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  form_->show();
  Click("cmdCancel");
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(prints_, 0);
  EXPECT_EQ(form_->result(), QDialog::Rejected);
}

TEST_F(FrmPrintTest, CanBeDestroyedWhileTheSystemDialogIsOpen) {
  Show();
  script_.During("ask printer", [this] { delete form_.data(); });
  Click("cmdPrint");
  EXPECT_TRUE(form_.isNull());
  EXPECT_EQ(prints_, 0);
  EXPECT_EQ(script_.pages, 0);
}

TEST_F(FrmPrintTest, SecondRequestWhileTheSystemDialogIsOpenIsIgnored) {
  Show();
  script_.During("ask printer", [this] {
    script_.During("ask printer", [] { FAIL() << "asked twice"; });
    form_->cmdPrint_Click();
    form_->cmdPdf_Click();
  });
  Click("cmdPrint");
  EXPECT_EQ(prints_, 1);
}

TEST_F(FrmPrintTest, CanBeUsedByKeyboardAlone) {
  Show();
  QStringList order;
  form_->activateWindow();
  QWidget* at = &Find<QWidget>("cmbPaper");
  for (int step = 0; step < 5; ++step) {
    order << at->objectName();
    do {
      at = at->nextInFocusChain();
    } while ((at->focusPolicy() & Qt::TabFocus) == 0 || !at->isVisible());
  }
  EXPECT_EQ(order.join(QLatin1Char(' ')).toStdString(), "cmbPaper cmbOrientation cmdPrint cmdPdf cmdCancel");
  EXPECT_EQ(form_->focusWidget(), &Find<QWidget>("cmdPrint"));
  QTest::keyClick(form_, Qt::Key_Return);
  EXPECT_EQ(prints_, 1);
}

TEST_F(FrmPrintTest, EveryControlHasAnAccessibleName) {
  Show();
  EXPECT_EQ(Find<QWidget>("cmbPaper").accessibleName().toStdString(), "Paper");
  EXPECT_EQ(Find<QWidget>("cmbOrientation").accessibleName().toStdString(), "Orientation");
  EXPECT_EQ(form_->windowTitle().toStdString(), "Print");
}

TEST_F(FrmPrintTest, SheetIsWhiteInADarkThemeAndTextsAreReadable) {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(0x30, 0x30, 0x30));
  dark.setColor(QPalette::WindowText, QColor(0xee, 0xee, 0xee));
  QApplication::setPalette(dark);
  Show();
  const QImage dots = Picture1().grab().toImage();
  const QPoint corner = Picture1().SheetRect().toRect().bottomRight() - QPoint(4, 4);
  EXPECT_EQ(dots.pixelColor(corner), QColor(Qt::white));
  const QPalette ink = Find<QLabel>("lblStatus").palette();
  EXPECT_GE(paint::ContrastRatio(ink.color(QPalette::WindowText), form_->palette().color(QPalette::Window)), 4.5);
  QPalette light;
  light.setColor(QPalette::Window, QColor(0xee, 0xee, 0xee));
  light.setColor(QPalette::WindowText, QColor(0x20, 0x20, 0x20));
  QApplication::setPalette(light);
  QEvent change(QEvent::ApplicationPaletteChange);  // Qt sends it only from its event loop.
  QCoreApplication::sendEvent(form_, &change);
  EXPECT_GT(form_->palette().color(QPalette::Window).lightness(), 200) << "follows the system";
}

}  // namespace
}  // namespace tonalith::print
