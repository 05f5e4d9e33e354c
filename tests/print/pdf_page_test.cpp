// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The printed page, measured in PDF files that another program renders.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/qt/qt_print_service.h"
#include "print/print_picture_to_size.h"
#include "support/ink.h"
#include "support/pdf_file.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::print {
namespace {

namespace fs = std::filesystem;
using platform::Paper;
using platform::PaperOrientation;
using platform::PaperSize;
using testing::IsEmpty;

struct PageCase {
  const char* name;
  Paper paper;
  double width;  // Points.
  double height;
};

void PrintTo(const PageCase& page, std::ostream* out) { *out << page.name; }

/// A picture that is painted up to all its edges: a frame with a text inside.
class PdfPage : public testing::TestWithParam<PageCase> {
 protected:
  static constexpr int kDotsPerInch = 150;
  static constexpr double kBorder = 18;

  std::string Print(int width, int height) {
    const std::string file = temp_ / "page.pdf";
    source_->resize(width, height);
    paint::DrawingSurface& surface = source_->Surface();
    surface.SetScaleMode(paint::ScaleMode::kPixels);
    surface.Cls();
    for (const int y : {0, height - 1}) surface.Line(0, y, width, y);
    for (const int x : {0, width - 1}) surface.Line(x, 0, x, height);
    surface.SetFontSize(paint::Pixels(40));
    surface.SetCurrentX(20);
    surface.SetCurrentY(20);
    surface.Print("Selectable: \xC2\xBD \xE2\x99\xAF D#");
    const auto printer = platform::MakePdfPrinter(file, {"Dorian in D\xE2\x99\xAF", GetParam().paper});
    PrintPictureToSize({*printer, box_}, form_, *source_, 90, 15, 15);
    EXPECT_TRUE(printer->IsEnded());
    EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
    return file;
  }

  /// The painted part of the printed page as shares of its printable area.
  QRectF InkShares(const std::string& file) {
    const QImage page = tests::PdfFile(file).Page(kDotsPerInch);
    const QRectF ink = tests::InkBox(page, page.rect());
    const double dots = kDotsPerInch / 72.0;
    const double width = (GetParam().width - 2 * kBorder) * dots;
    const double height = (GetParam().height - 2 * kBorder) * dots;
    return {(ink.left() - kBorder * dots) / width, (ink.top() - kBorder * dots) / height, ink.width() / width,
            ink.height() / height};
  }

  tests::TempFolder temp_;
  QWidget form_;
  PictureBox* source_ = new PictureBox(QStringLiteral("source"), &form_);
  tests::RecordingMsgBox box_;
};

TEST_P(PdfPage, WidePictureFills90PercentOfTheWidthAt15Percent) {
  const QRectF ink = InkShares(Print(1600, 400));
  EXPECT_NEAR(ink.width(), 0.9, 0.005);
  EXPECT_NEAR(ink.left(), 0.1 * 0.15, 0.005);
  EXPECT_NEAR(ink.top(), (1 - ink.height()) * 0.15, 0.005);
  const double width = GetParam().width - 2 * kBorder;
  const double height = GetParam().height - 2 * kBorder;
  EXPECT_NEAR(ink.height(), 0.9 * width / 4 / height, 0.005);
}

TEST_P(PdfPage, TallPictureFills90PercentOfTheHeightAt15Percent) {
  const QRectF ink = InkShares(Print(400, 1600));
  EXPECT_NEAR(ink.height(), 0.9, 0.005);
  EXPECT_NEAR(ink.top(), 0.1 * 0.15, 0.005);
  EXPECT_NEAR(ink.left(), (1 - ink.width()) * 0.15, 0.005);
}

TEST_P(PdfPage, HasTheSizeOfItsPaper) {
  const QImage page = tests::PdfFile(Print(1000, 500)).Page(kDotsPerInch);
  EXPECT_NEAR(page.width(), GetParam().width / 72 * kDotsPerInch, 2);
  EXPECT_NEAR(page.height(), GetParam().height / 72 * kDotsPerInch, 2);
}

TEST_P(PdfPage, IsOnePageWithTitleSelectableTextAndEmbeddedFonts) {
  const tests::PdfFile pdf(Print(1000, 500));
  EXPECT_EQ(pdf.Info("Pages"), "1");
  EXPECT_EQ(pdf.Info("Title"), "Dorian in D\xE2\x99\xAF");
  EXPECT_EQ(pdf.Text(), "Selectable: \xC2\xBD \xE2\x99\xAF D#");
  const std::vector<tests::PdfFont> fonts = pdf.Fonts();
  EXPECT_FALSE(fonts.empty());
  for (const tests::PdfFont& font : fonts) {
    EXPECT_TRUE(font.isEmbedded) << font.name;
    EXPECT_TRUE(font.isUnicode) << font.name;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Papers, PdfPage,
    testing::Values(PageCase{"A4Landscape", {PaperSize::kA4, PaperOrientation::kLandscape}, 842, 595},
                    PageCase{"A4Portrait", {PaperSize::kA4, PaperOrientation::kPortrait}, 595, 842},
                    PageCase{"LetterLandscape", {PaperSize::kLetter, PaperOrientation::kLandscape}, 792, 612},
                    PageCase{"LetterPortrait", {PaperSize::kLetter, PaperOrientation::kPortrait}, 612, 792}),
    [](const auto& page) { return std::string(page.param.name); });

}  // namespace
}  // namespace tonalith::print
