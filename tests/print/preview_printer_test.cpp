// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/preview_printer.h"

#include <gtest/gtest.h>

#include <memory>

namespace tonalith::print {
namespace {

class Dot : public platform::PrintablePicture {
 public:
  [[nodiscard]] double Width() const override { return 1; }
  [[nodiscard]] double Height() const override { return 1; }
  void PaintOn(QPainter& /*painter*/) const override {}
};

PreviewPrinter OnSheet() { return PreviewPrinter({600, 500, {20, 20, 560, 460}}); }

TEST(PreviewPrinter, HasThePrintableAreaInPointsForAnyUnit) {
  PreviewPrinter printer = OnSheet();
  for (const auto mode : {platform::PrinterScaleMode::kPixels, platform::PrinterScaleMode::kTwips}) {
    printer.SetScaleMode(mode);
    EXPECT_EQ(printer.ScaleWidth(), 560);
    EXPECT_EQ(printer.ScaleHeight(), 460);
    EXPECT_EQ(printer.DotsPerInch(), 72);
  }
}

TEST(PreviewPrinter, RecordsPicturesAndRectanglesInOrder) {
  PreviewPrinter printer = OnSheet();
  const auto first = std::make_shared<Dot>();
  const auto second = std::make_shared<Dot>();
  printer.PaintPicture(first, {1, 2, 3, 4});
  printer.PaintPicture(nullptr, {9, 9, 9, 9});
  printer.PaintPicture(second, {5, 6, 7, 8});
  ASSERT_EQ(printer.Painted().size(), 2U);
  EXPECT_EQ(printer.Painted()[0].picture, first);
  EXPECT_EQ(printer.Painted()[0].place, (platform::PrintRect{1, 2, 3, 4}));
  EXPECT_EQ(printer.Painted()[1].picture, second);
}

TEST(PreviewPrinter, IsEndedOnceItsDocumentIs) {
  PreviewPrinter printer = OnSheet();
  EXPECT_FALSE(printer.IsEnded());
  printer.EndDoc();
  EXPECT_TRUE(printer.IsEnded());
  EXPECT_EQ(printer.Destination(), "preview");
}

}  // namespace
}  // namespace tonalith::print
