// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How the notes of the neck are marked: play marker, focus ring, glow and rim; and where its parts are.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <algorithm>

#include "paint/colours.h"
#include "paint/theme.h"
#include "support/ink.h"
#include "support/recorded_painting.h"
#include "views/fretboard_in_text.h"

namespace tonalith::views {
namespace {

using tests::Drawing;
using tests::Drawn;
using tests::OneScale;

const QColor kAmber(paint::kAmber);

class FretboardPainting : public testing::Test {
 protected:
  FretboardPainting() {
    view_.PositionNotes();
    OneScale scale("2212221");
    Refresh(view_, "C", scale);
    window_.resize(1080, 800);
    view_.setParent(&window_);
    window_.show();
    window_.activateWindow();
    QApplication::processEvents();
  }
  ~FretboardPainting() override { view_.setParent(nullptr); }

  /// The first visible note with a picture.
  NoteImage& Note(NotePicture picture) {
    for (int index = 0; index < view_.Layout().NoteCount(); ++index) {
      if (!view_.Image(index).isHidden() && view_.Image(index).Picture() == picture) return view_.Image(index);
    }
    throw std::logic_error("no such note");
  }
  std::vector<Drawn> OutlinedWith(const QColor& colour) { return tests::RecordPainting(view_).OutlinedWith(colour); }
  std::vector<Drawn> Glow() {
    std::vector<Drawn> glow;
    for (const Drawn& drawn : tests::RecordPainting(view_).All()) {
      if (drawn.fill.rgb() == kAmber.rgb()) glow.push_back(drawn);
    }
    return glow;
  }

  tests::RecordingMsgBox msgBox_;
  QWidget window_;
  FretboardView view_{core::Neck::Standard(), msgBox_};
};

TEST_F(FretboardPainting, PlayMarkerIsAnAmberTriangleThatPointsDown) {
  QWidget& marker = view_.Picture1();
  EXPECT_EQ(tests::RecordPainting(marker).AsText(),
            "path 5.5,15 23.5,15 14.5,29 5.5,15 at 5.5,15 18x14 fill #e8a317 line #6b4700 1.5 smooth\n");
  EXPECT_EQ(marker.size(), QSize(29, 30));
  EXPECT_TRUE(marker.testAttribute(Qt::WA_TransparentForMouseEvents)) << "a click on it reaches the note";
}

TEST_F(FretboardPainting, FocusRingIsAmberWithADarkEdgeAroundItsNote) {
  for (const NotePicture picture : {NotePicture::kKeyNote, NotePicture::kScaleNote}) {
    NoteImage& note = Note(picture);
    note.setFocus(Qt::TabFocusReason);
    const std::vector<Drawn> amber = OutlinedWith(kAmber);
    const std::vector<Drawn> edge = OutlinedWith(QColor(0x14, 0x0a, 0x06));
    ASSERT_EQ(amber.size(), 1U);
    ASSERT_EQ(edge.size(), 1U);
    EXPECT_EQ(amber[0].box, QRectF(note.geometry()).adjusted(-1.6, -1.6, 1.6, 1.6));
    EXPECT_EQ(edge[0].box, amber[0].box);
    EXPECT_GT(edge[0].lineWidth, amber[0].lineWidth + 2) << "visible on both sides";
    EXPECT_EQ(amber[0].form, picture == NotePicture::kKeyNote ? "round 9.1" : "ellipse");
    EXPECT_FALSE(amber[0].fill.isValid());
    EXPECT_TRUE(amber[0].isSmooth);
    note.clearFocus();
  }
}

TEST_F(FretboardPainting, GlowFadesOutwardsAndHasTheShapeOfItsNote) {
  for (const NotePicture picture : {NotePicture::kKeyNote, NotePicture::kScaleNote}) {
    const NoteImage& note = Note(picture);
    view_.LightNote(LitBy::kPlayback, note.objectName().toStdString());
    const std::vector<Drawn> glow = Glow();
    ASSERT_EQ(glow.size(), 6U);
    for (std::size_t i = 0; i < glow.size(); ++i) {
      const auto reach = static_cast<double>(6 - i);
      EXPECT_EQ(glow[i].box, QRectF(note.geometry()).adjusted(-reach, -reach, reach, reach));
      EXPECT_EQ(glow[i].fill.alpha(), 70) << "the layers add up towards the disc";
      EXPECT_FALSE(glow[i].line.isValid());
      EXPECT_TRUE(glow[i].isSmooth);
    }
    EXPECT_EQ(glow[5].form, picture == NotePicture::kKeyNote ? "round 8.5" : "ellipse");
  }
  view_.DarkenNote(LitBy::kPlayback);
  EXPECT_TRUE(Glow().empty());
}

TEST_F(FretboardPainting, HiddenNoteHasNoGlow) {
  NoteImage& note = Note(NotePicture::kScaleNote);
  view_.LightNote(LitBy::kPlayback, note.objectName().toStdString());
  ASSERT_FALSE(Glow().empty());
  note.hide();
  EXPECT_TRUE(Glow().empty());
}

/// A note as it is painted at scale 2 on black.
QImage PictureOfNote(NotePicture picture, bool isLit) {
  NoteImage note(QStringLiteral("img"), "A", nullptr);
  note.SetPicture(picture);
  note.SetLit(isLit);
  QImage image(58, 58, QImage::Format_RGB32);
  image.setDevicePixelRatio(2);
  image.fill(Qt::black);
  note.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
  return image;
}

TEST(NoteRim, IsAmberWhileTheNoteSoundsAndHasItsShape) {
  for (const NotePicture picture : {NotePicture::kKeyNote, NotePicture::kScaleNote}) {
    const QImage dark = PictureOfNote(picture, false);
    const QImage lit = PictureOfNote(picture, true);
    EXPECT_EQ(lit.pixelColor(29, 3), kAmber) << "at the top";
    EXPECT_EQ(lit.pixelColor(3, 29), kAmber) << "at the left";
    EXPECT_NE(dark.pixelColor(29, 3), kAmber);
    EXPECT_EQ(lit.pixelColor(29, 29), dark.pixelColor(29, 29)) << "the middle stays";
    EXPECT_EQ(lit.pixelColor(29, 8), dark.pixelColor(29, 8)) << "inside of the rim";
  }
  // Near the corner: outside of a circle, on the rim of a rounded square.
  EXPECT_EQ(PictureOfNote(NotePicture::kScaleNote, true).pixelColor(6, 6), QColor(Qt::black));
  EXPECT_EQ(PictureOfNote(NotePicture::kKeyNote, true).pixelColor(7, 7), kAmber);
}

TEST(NoteRim, DoesNotStayOnOtherNotesOfTheSamePicture) {
  const QImage before = PictureOfNote(NotePicture::kKeyNote, false);
  PictureOfNote(NotePicture::kKeyNote, true);
  EXPECT_EQ(PictureOfNote(NotePicture::kKeyNote, false), before);
}

TEST(NotePictures, AreShapesInTheirColoursWithALightRim) {
  const auto look = [](NotePicture picture) {
    return tests::RecordPainting({29, 29}, [&](QPainter& painter) { PictureOf(picture)->PaintOn(painter); }).AsText();
  };
  EXPECT_EQ(look(NotePicture::kKeyNote), "round 7.5 at 0.75,0.75 27.5x27.5 fill #d0440e line #fff3e6 1.5 smooth\n");
  EXPECT_EQ(look(NotePicture::kScaleNote), "ellipse at 0.75,0.75 27.5x27.5 fill #2f5d62 line #dfeeee 1.2 smooth\n");
  EXPECT_EQ(PictureOf(NotePicture::kNone), nullptr);
}

TEST_F(FretboardPainting, NumbersAreInTheSecondaryColourBelowTheirInlays) {
  const Drawing drawing = tests::RecordPainting(view_);
  EXPECT_EQ(drawing.Texts(), QStringList({QStringLiteral("3"), QStringLiteral("5"), QStringLiteral("7"),
                                          QStringLiteral("9"), QStringLiteral("12"), QStringLiteral("15")}));
  const NeckGeometry neck = view_.Geometry();
  const QPointF origin = view_.DesignRect().topLeft();
  for (const QString& number : drawing.Texts()) {
    const Drawn text = drawing.Text(number);
    EXPECT_EQ(text.line, paint::SecondaryText(view_.palette()));
    EXPECT_EQ(text.font.pixelSize(), 12);
    const QRectF box = view_.FretNumberBox(number.toInt()).translated(-origin);
    EXPECT_EQ(box.height(), 18);
    EXPECT_NEAR(text.box.center().x(), box.center().x(), 1);
    EXPECT_NEAR(text.box.center().y(), box.center().y(), 1.5);
    EXPECT_GT(box.top(), neck.wood.bottom() - origin.y());
  }
}

TEST_F(FretboardPainting, HiddenMarkerHasNoNumber) {
  view_.findChild<QWidget*>(QStringLiteral("fretPosition5"))->hide();
  EXPECT_FALSE(tests::RecordPainting(view_).Texts().contains(QStringLiteral("5")));
  EXPECT_TRUE(tests::RecordPainting(view_).Texts().contains(QStringLiteral("7")));
}

TEST_F(FretboardPainting, PartsOfTheNeckAreWhereTheirNotesAre) {
  const NeckGeometry neck = view_.Geometry();
  const QPointF origin = view_.DesignRect().topLeft();
  const auto centre = [&](int row, int position) {
    return QRectF(view_.Image(view_.Layout().IndexAt(row, position)).geometry()).center() + origin;
  };
  ASSERT_EQ(neck.strings.size(), 6U);
  for (int row = 1; row <= 6; ++row) {
    EXPECT_DOUBLE_EQ(neck.strings[static_cast<std::size_t>(row - 1)], centre(row, 3).y());
    EXPECT_EQ(neck.open[static_cast<std::size_t>(row - 1)], !view_.Image(view_.Layout().IndexAt(row, 0)).isHidden());
  }
  ASSERT_EQ(neck.frets.size(), 15U);
  for (int fret = 1; fret <= 15; ++fret) {
    const double wire = neck.frets[static_cast<std::size_t>(fret - 1)];
    EXPECT_GT(wire, centre(1, fret).x() + 14.5) << "a disc ends before the wire of its fret";
    if (fret == 15) break;
    EXPECT_LT(wire, centre(1, fret + 1).x() - 14.5);
  }
  std::vector<double> inlays;
  for (const QPointF& inlay : neck.inlays) inlays.push_back(inlay.x());
  std::vector<double> frets;
  for (const int fret : {3, 5, 7, 9, 12, 12, 15}) frets.push_back(centre(1, fret).x());
  EXPECT_EQ(inlays, frets);
  const double middle = (neck.strings.front() + neck.strings.back()) / 2;
  for (std::size_t i = 0; i < inlays.size(); ++i) {
    const double above = i == 4 ? -32 : i == 5 ? 32 : 0;
    EXPECT_DOUBLE_EQ(neck.inlays[i].y(), middle + above) << i;
  }
}

TEST_F(FretboardPainting, NutIsEightPixelsWideAndTheWoodBeginsInIt) {
  const NeckGeometry neck = view_.Geometry();
  EXPECT_DOUBLE_EQ(neck.nut.width(), 8);
  EXPECT_DOUBLE_EQ(neck.wood.left(), neck.nut.center().x() + 2);
  EXPECT_DOUBLE_EQ(neck.wood.right(), neck.stringsRight);
  EXPECT_LT(neck.nut.top(), neck.wood.top());
  EXPECT_GT(neck.nut.bottom(), neck.wood.bottom());
  EXPECT_LT(neck.wood.top(), neck.strings.front());
  EXPECT_GT(neck.wood.bottom(), neck.strings.back());
  EXPECT_DOUBLE_EQ(neck.openLeft, 40 + 14.5) << "under the disc of an open note";
}

}  // namespace
}  // namespace tonalith::views
