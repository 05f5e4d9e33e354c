// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <array>
#include <cstdio>

#include "paint/colours.h"
#include "paint/painter_surface.h"
#include "paint/recording_surface.h"
#include "support/ink.h"
#include "support/paint_counter.h"
#include "views/fretboard_in_text.h"

namespace tonalith::views {
namespace {

using paint::ContrastRatio;
using tests::OneScale;

constexpr double kMiddle = 14.5;

QImage NotePicture29(NotePicture picture, const std::string& tag, bool named, double scale) {
  NoteImage note(QStringLiteral("img"), tag, nullptr);
  note.SetPicture(picture);
  if (named) note.DrawName();
  QImage image(qRound(29 * scale), qRound(29 * scale), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  paint::PainterSurface surface(painter);
  note.DrawOn(surface);
  return image;
}

/// The bounding box of the dots for which `is` returns true.
template <class Is>
QRect BoxWhere(const QImage& image, Is is) {
  QRect box;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (is(image.pixelColor(x, y))) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
}

TEST(NotePictures, DrawTheNameAfterThePicture) {
  NoteImage note(QStringLiteral("img"), "F#", nullptr);
  note.SetPicture(NotePicture::kKeyNote);
  note.DrawName();
  paint::RecordingSurface surface;
  note.DrawOn(surface);
  const double width = surface.TextWidth("F#");
  const std::string font = paint::FontIsInstalled("Tahoma") ? "Tahoma" : "MS Sans Serif";
  std::array<char, 16> x{};
  std::snprintf(x.data(), x.size(), "%.2f", (29 - width) / 2);
  EXPECT_EQ(surface.AsText(), "picture key-note at 0,0\ncolour &HFFFFFF\nfont \"" + font +
                                  "\" 14px bold\nprint \"F#\" at " + x.data() + ",5\n");
}

TEST(NotePictures, HaveEnoughContrastForTheirNames) {
  EXPECT_GE(ContrastRatio(Qt::white, QColor(paint::kAccent)), 4.5);
  EXPECT_GE(ContrastRatio(Qt::white, QColor(paint::kNote)), 4.5);
  EXPECT_EQ(QColor(paint::kNote), QColor(0x2f, 0x5d, 0x62));
}

TEST(NotePictures, PaintTheDiscInTheTestedColour) {
  EXPECT_EQ(NotePicture29(NotePicture::kKeyNote, "", false, 1).pixelColor(5, 14), QColor(paint::kAccent));
  EXPECT_EQ(NotePicture29(NotePicture::kScaleNote, "", false, 1).pixelColor(5, 14), QColor(paint::kNote));
}

TEST(NotePictures, KeyNoteHasItsOwnShape) {
  const QImage key = NotePicture29(NotePicture::kKeyNote, "", false, 2);
  const QImage other = NotePicture29(NotePicture::kScaleNote, "", false, 2);
  const auto covered = [](const QImage& image) {
    int dots = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) dots += image.pixelColor(x, y).alpha() >= 128 ? 1 : 0;
    }
    return static_cast<double>(dots) / (image.width() * image.height());
  };
  EXPECT_NEAR(covered(other), 0.785, 0.04) << "a circle";
  EXPECT_GT(covered(key), 0.92) << "a rounded square";
  EXPECT_EQ(key.pixelColor(0, 0).alpha(), 0) << "with round corners";
  EXPECT_GT(key.pixelColor(6, 6).alpha(), 250);
  EXPECT_EQ(other.pixelColor(6, 6).alpha(), 0);
}

TEST(NotePictures, AreCentredOnTheirImage) {
  for (const double scale : {1.0, 2.0}) {
    for (const NotePicture picture : {NotePicture::kKeyNote, NotePicture::kScaleNote}) {
      const QImage image = NotePicture29(picture, "", false, scale);
      const QRect box = BoxWhere(image, [](const QColor& dot) { return dot.alpha() >= 128; });
      EXPECT_NEAR(box.left() + box.width() / 2.0, kMiddle * scale, 0.5);
      EXPECT_NEAR(box.top() + box.height() / 2.0, kMiddle * scale, 0.5);
    }
  }
}

TEST(NotePictures, CentreTheNameOnTheDisc) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    for (const char* tag : {"E", "B", "D", "F#", "G#"}) {
      const QImage image = NotePicture29(NotePicture::kScaleNote, tag, true, scale);
      // The ring is light too, so only the inner part counts.
      const QRect inside = QRect(QPoint(0, 0), image.size())
                               .adjusted(qRound(3 * scale), qRound(6 * scale), qRound(-3 * scale), qRound(-6 * scale));
      const QRect box = BoxWhere(image.copy(inside), [](const QColor& dot) { return dot.lightness() > 170; });
      ASSERT_FALSE(box.isEmpty()) << tag;
      EXPECT_NEAR(inside.left() + box.left() + box.width() / 2.0, kMiddle * scale, 1 + 0.5 * scale) << tag;
      EXPECT_NEAR(inside.top() + box.top() + box.height() / 2.0, kMiddle * scale, 0.5 + 0.7 * scale) << tag;
    }
  }
}

class FretboardLook : public testing::Test {
 protected:
  FretboardLook() {
    view_.PositionNotes();
    OneScale scale("2212221");
    Refresh(view_, "F#", scale);
  }
  tests::RecordingMsgBox msgBox_;
  FretboardView view_{core::Neck::Standard(), msgBox_};
};

TEST_F(FretboardLook, StringsRunThroughTheCentresOfTheirDiscs) {
  view_.HideNotes();
  const QImage image = view_.grab().toImage();
  for (int row = 1; row <= 6; ++row) {
    const QRect disc = view_.Image(view_.Layout().IndexAt(row, 4)).geometry();
    // Fret 4 has no inlay: the lightest dot is the string.
    int lightest = 0;
    int at = 0;
    for (int y = disc.top(); y <= disc.bottom(); ++y) {
      const int light = qGray(image.pixel(disc.center().x(), y));
      if (light > lightest) {
        lightest = light;
        at = y;
      }
    }
    EXPECT_NEAR(at, disc.top() + 14, 1) << "row " << row;
  }
}

/// The bounds of the painted string left of the nut, in pixels of the view.
QRectF InkLeftOfNut(const FretboardView& view, const QImage& image, int row) {
  const double scale = image.devicePixelRatio();
  const QPointF origin = view.DesignRect().topLeft();
  const NeckGeometry neck = view.Geometry();
  const double string = neck.strings.at(static_cast<std::size_t>(row - 1)) - origin.y();
  const QRectF band(0, string - 15, neck.nut.left() - 2 - origin.x(), 30);
  const QRect box = BoxWhere(image.copy(QRectF(band.topLeft() * scale, band.size() * scale).toRect()),
                             [](const QColor& dot) { return dot != Qt::magenta; });
  return {QPointF(box.topLeft()) / scale, QSizeF(box.size()) / scale};
}

TEST_F(FretboardLook, StringWithoutAnOpenNoteEndsAtTheNut) {
  const NeckGeometry neck = view_.Geometry();
  const auto painted = [&](double scale, const auto& paint) {
    QImage image(view_.size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.translate(-view_.DesignRect().topLeft());
    paint(painter);
    return image;
  };
  for (const double scale : {1.0, 2.0}) {
    const QImage wood = painted(scale, [&](QPainter& painter) {
      PaintNeck(painter, neck);
      PaintOpenStrings(painter, neck);
    });
    const QImage paper = painted(scale, [&](QPainter& painter) { NeckOnPaper(neck)->PaintOn(painter); });
    QImage window(wood.size(), QImage::Format_ARGB32_Premultiplied);
    window.setDevicePixelRatio(scale);
    window.fill(Qt::magenta);
    view_.render(&window, QPoint(), QRegion(), QWidget::DrawChildren);
    for (int row = 1; row <= 6; ++row) {
      const NoteImage& open = view_.Image(view_.Layout().IndexAt(row, 0));
      EXPECT_EQ(InkLeftOfNut(view_, window, row).isEmpty(), open.isHidden()) << "row " << row;
      for (const QImage& image : {wood, paper}) {
        const QRectF ink = InkLeftOfNut(view_, image, row);
        EXPECT_EQ(ink.isEmpty(), open.isHidden()) << "row " << row << " at scale " << scale;
        if (open.isHidden()) continue;
        EXPECT_GE(ink.left(), open.x() + 10) << "the string begins under the disc";
        EXPECT_NEAR(ink.right(), neck.nut.left() - 2, 1) << "and reaches the nut";
      }
    }
  }
  EXPECT_FALSE(view_.Image(16).isHidden()) << "B belongs to F# major";
  EXPECT_TRUE(view_.Image(0).isHidden()) << "E does not";
}

TEST_F(FretboardLook, PaintsANumberBelowEveryInlay) {
  view_.HideNotes();
  const QImage image = view_.grab().toImage();
  for (int fret = 1; fret <= 15; ++fret) {
    const QRect box = view_.FretNumberBox(fret).toRect().translated(-view_.DesignRect().topLeft());
    const QColor ground = image.pixelColor(box.topLeft());
    const QRect ink = BoxWhere(image.copy(box), [&](const QColor& dot) { return dot != ground; });
    EXPECT_EQ(!ink.isEmpty(), FretboardLayout::HasInlay(fret)) << fret;
  }
  EXPECT_EQ(view_.findChild<QWidget*>(QStringLiteral("fretPosition15")), nullptr);
}

TEST_F(FretboardLook, HighlightChangesRimAndGlowButNotTheName) {
  const NoteImage& note = view_.Image(16);
  ASSERT_FALSE(note.isHidden());
  const auto grab = [&] {
    QImage image(view_.size(), QImage::Format_RGB32);
    image.fill(QColor(0xf6, 0xf4, 0xf0));
    view_.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
  };
  const QImage dark = grab();
  view_.LightNote(LitBy::kPlayback, "img16");
  const QImage lit = grab();
  const QRect disc = note.geometry();
  EXPECT_EQ(lit.copy(disc.adjusted(5, 10, -5, -10)), dark.copy(disc.adjusted(5, 10, -5, -10)));
  EXPECT_NE(lit.pixelColor(disc.center().x(), disc.top() + 1), dark.pixelColor(disc.center().x(), disc.top() + 1));
  EXPECT_NE(lit.pixelColor(disc.center().x(), disc.top() - 2), dark.pixelColor(disc.center().x(), disc.top() - 2));
  view_.DarkenNote(LitBy::kPlayback);
  EXPECT_EQ(grab(), dark);
}

TEST_F(FretboardLook, PaintsFretWireAtTheFretLines) {
  view_.HideNotes();
  const QImage image = view_.grab().toImage();
  const int y = view_.Image(0).geometry().bottom() + 2;
  for (int fret = 1; fret <= 15; ++fret) {
    const auto* line = view_.findChild<views::LineControl*>(QStringLiteral("fret") + QString::number(fret));
    EXPECT_GT(qGray(image.pixel(qRound(paint::ExactPixels(line->x1)) - 0, y)), 110) << fret;
    EXPECT_LT(qGray(image.pixel(qRound(paint::ExactPixels(line->x1)) - 8, y)), 90) << fret;
  }
}

TEST_F(FretboardLook, LooksTheSameInLightAndDark) {
  const QRect neck(90, 40, 930, 180);
  QPalette light(QColor(0xee, 0xee, 0xee));
  QPalette dark(QColor(0x22, 0x22, 0x22));
  view_.setPalette(light);
  const QImage inLight = view_.grab(neck).toImage();
  view_.setPalette(dark);
  EXPECT_EQ(view_.grab(neck).toImage(), inLight);
  const QRect numbers(200, 245, 650, 25);
  const QImage numbersInDark = view_.grab(numbers).toImage();
  view_.setPalette(light);
  EXPECT_NE(view_.grab(numbers).toImage(), numbersInDark);
}

TEST_F(FretboardLook, PaintsOnceForARefresh) {
  view_.show();
  QApplication::processEvents();
  const tests::PaintCounter paints(view_);
  OneScale scale("32232");
  Refresh(view_, "A", scale);
  EXPECT_EQ(paints.Count(), 0) << "the procedures themselves paint nothing";
  QApplication::processEvents();
  EXPECT_EQ(paints.Count(), 1);
}

}  // namespace
}  // namespace tonalith::views
