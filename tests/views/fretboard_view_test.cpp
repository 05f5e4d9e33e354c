// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <vector>

#include "core/failure.h"
#include "support/text_message.h"
#include "views/fretboard_in_text.h"

namespace tonalith::views {
namespace {

using paint::Twips;
using tests::InText;
using tests::OneScale;
using views::LineControl;

class RecordingPlayer : public platform::NotePlayer {
 public:
  void Play(const std::string& path) override {
    if (broken) throw core::Failure(1000, tests::TextMessage("The sound device is gone."));
    paths.push_back(path);
  }
  std::vector<std::string> paths;
  bool broken = false;
};

class FretboardViewTest : public testing::Test {
 protected:
  FretboardViewTest() {
    view_.SetNotePlayer(&player_, "/home/anna/tonalith");
    view_.SetEventPump([this] { ++pumped_; });
    view_.PositionNotes();
  }

  [[nodiscard]] LineControl& Line(const char* name) const {
    return *view_.findChild<LineControl*>(QString::fromLatin1(name));
  }
  [[nodiscard]] QLabel& Marker(int fret) const {
    return *view_.findChild<QLabel*>(QStringLiteral("fretPosition") + QString::number(fret));
  }

  tests::RecordingMsgBox msgBox_;
  RecordingPlayer player_;
  int pumped_ = 0;
  FretboardView view_{core::Neck::Standard(), msgBox_};
};

TEST_F(FretboardViewTest, HasEveryControlUnderItsName) {
  const auto has = [&](const QString& name) { return view_.findChild<QObject*>(name) != nullptr; };
  for (int i = 0; i < 96; ++i) EXPECT_TRUE(has(QStringLiteral("img") + QString::number(i))) << i;
  for (const int i : {6, 7, 8, 9, 13, 14, 15}) EXPECT_TRUE(has(QStringLiteral("imgE") + QString::number(i))) << i;
  for (int i = 1; i <= 15; ++i) EXPECT_TRUE(has(QStringLiteral("fret") + QString::number(i))) << i;
  for (int i = 1; i <= 7; ++i) EXPECT_TRUE(has(QStringLiteral("Line") + QString::number(i))) << i;
  for (const int i : {3, 5, 7, 9, 12}) EXPECT_TRUE(has(QStringLiteral("fretPosition") + QString::number(i))) << i;
  EXPECT_TRUE(has(QStringLiteral("Picture1")));
  EXPECT_FALSE(has(QStringLiteral("img96")));
  EXPECT_FALSE(has(QStringLiteral("imgE10")));
}

TEST_F(FretboardViewTest, KeepsTheTwelveLabelImagesAsOneHiddenControlArray) {
  const QList<NoteImage*> labels = view_.findChildren<NoteImage*>(QStringLiteral("imgLabel"));
  ASSERT_EQ(labels.size(), 12);
  for (int element = 0; element < 12; ++element) {
    EXPECT_EQ(labels.at(element)->property("Index").toInt(), element);
    EXPECT_TRUE(labels.at(element)->isHidden());
  }
}

TEST_F(FretboardViewTest, TagsTheExtraImagesAndKeepsThemHidden) {
  std::string tags;
  for (const int number : {6, 7, 8, 9, 13, 14, 15}) {
    const auto* image = view_.findChild<NoteImage*>(QStringLiteral("imgE") + QString::number(number));
    tags += image->Tag() + " ";
    EXPECT_TRUE(image->isHidden());
  }
  EXPECT_EQ(tags, "C D E F C# D# F# ");
}

TEST_F(FretboardViewTest, PlacesEveryImageByItsRowAndPosition) {
  for (int index = 0; index < 96; ++index) {
    const NoteImage& image = view_.Image(index);
    const int row = index / 16 + 1;
    EXPECT_EQ(image.Left.value, 600 + 940 * (index % 16)) << index;
    EXPECT_EQ(image.Top, Line(("Line" + std::to_string(row)).c_str()).y1 - Twips{250}) << index;
    EXPECT_EQ(image.ScaleTop, image.Top);
    EXPECT_EQ(image.Width.value, 435);
    EXPECT_EQ(image.Height.value, 435);
    EXPECT_TRUE(image.AutoSize);
    EXPECT_EQ(image.Picture(), NotePicture::kScaleNote);
    EXPECT_FALSE(image.isHidden());
    EXPECT_EQ(image.toolTip().toStdString(), image.Tag());
    EXPECT_EQ(image.size(), QSize(29, 29));
  }
}

TEST_F(FretboardViewTest, PlacesPositionZeroAtTheLeftOfAMovedBaseImage) {
  view_.Image(32).Left = Twips{700};
  view_.PositionNotes();
  EXPECT_EQ(view_.Image(32).Left.value, 700);
  EXPECT_EQ(view_.Image(47).Left.value, 700 + 14100);
  EXPECT_EQ(view_.Image(31).Left.value, 600 + 14100);
}

TEST(FretboardLine, IsAPixelWideUnlessSet) {
  const paint::Twips zero{};
  EXPECT_EQ(LineControl(QStringLiteral("fret"), zero, zero, zero, zero, nullptr).BorderWidth, 1);
}

TEST_F(FretboardViewTest, PlacesTheFretLinesFromTheSecondOn) {
  const LineControl& fret1 = Line("fret1");
  EXPECT_EQ(fret1.x1.value, 2190) << "the first fret does not move";
  for (int fret = 2; fret <= 15; ++fret) {
    const LineControl& line = Line(("fret" + std::to_string(fret)).c_str());
    EXPECT_EQ(line.x1.value, 600 + 940 * fret + 650) << fret;
    EXPECT_EQ(line.x2, line.x1);
    EXPECT_EQ(line.y1, fret1.y1);
    EXPECT_EQ(line.y2, fret1.y2);
    EXPECT_EQ(line.BorderWidth, 3);
  }
}

TEST_F(FretboardViewTest, DoesNotMoveTheFirstFretWhenNotesArePlacedAgain) {
  Line("fret1").x1 = Twips{2000};
  Line("fret1").y2 = Twips{6900};
  view_.PositionNotes();
  EXPECT_EQ(Line("fret1").x1.value, 2000);
  EXPECT_EQ(Line("fret9").y2.value, 6900) << "the others follow its y";
}

TEST_F(FretboardViewTest, PlacesAndNamesTheFiveFretMarkers) {
  const std::vector<std::pair<int, const char*>> tips{
      {3, "The 3rd Fret"}, {5, "The 5th Fret"}, {7, "The 7th Fret"}, {9, "The 9th Fret"}, {12, "The 12th Fret"}};
  for (const auto& [fret, tip] : tips) {
    EXPECT_EQ(Marker(fret).toolTip().toStdString(), tip);
    EXPECT_EQ(Marker(fret).text(), QString::number(fret));
    const Twips left{600 + 940 * fret + 255};
    const Twips top = Line("fret1").y2 + Twips{250};
    EXPECT_EQ(Marker(fret).pos() + view_.DesignRect().topLeft(),
              QPoint(paint::NearestPixel(left), paint::NearestPixel(top)));
  }
}

TEST_F(FretboardViewTest, SkipsAnImageTooFarRight) {
  view_.Image(16).Left = Twips{32000};
  view_.PositionNotes();
  EXPECT_EQ(msgBox_.Texts(), "");
  EXPECT_EQ(view_.Image(17).Left.value, 600 + 940) << "beyond the 16-bit range it does not move";
  EXPECT_EQ(view_.Image(33).Left.value, 600 + 940);
}

TEST_F(FretboardViewTest, HidesThePlayMarkerAndEveryNote) {
  view_.FlashNotes("img3");
  view_.PositionNotes();
  EXPECT_TRUE(view_.Picture1().isHidden());
  view_.findChild<NoteImage*>(QStringLiteral("imgE7"))->show();
  view_.HideNotes();
  for (int index = 0; index < 96; ++index) EXPECT_TRUE(view_.Image(index).isHidden()) << index;
  EXPECT_TRUE(view_.findChild<NoteImage*>(QStringLiteral("imgE7"))->isHidden());
}

TEST_F(FretboardViewTest, ShowsAMajorScaleWithItsKeyNoteMarked) {
  OneScale scale("2212221");
  Refresh(view_, "C", scale);
  EXPECT_EQ(InText(view_),
            "E F . G . A . B *C . D . E F . G\n"
            "B *C . D . E F . G . A . B *C . D\n"
            "G . A . B *C . D . E F . G . A .\n"
            "D . E F . G . A . B *C . D . E F\n"
            "A . B *C . D . E F . G . A . B *C\n"
            "E F . G . A . B *C . D . E F . G\n");
  EXPECT_EQ(scale.stepLine, "Scale Steps:   T  T  S  T  T  T  S");
  EXPECT_EQ(scale.reads, 1);
}

TEST_F(FretboardViewTest, MarksEveryFSharpOfAScaleOnFSharp) {
  OneScale scale("32232");
  Refresh(view_, "F#", scale);
  EXPECT_EQ(InText(view_),
            "E . *F# . . A . B . C# . . E . *F# .\n"
            "B . C# . . E . *F# . . A . B . C# .\n"
            ". . A . B . C# . . E . *F# . . A .\n"
            ". . E . *F# . . A . B . C# . . E .\n"
            "A . B . C# . . E . *F# . . A . B .\n"
            "E . *F# . . A . B . C# . . E . *F# .\n");
}

TEST_F(FretboardViewTest, ShowsTheFirstSixteenPositionsOfALongPattern) {
  OneScale scale("1111111111111111111111");
  Refresh(view_, "C", scale);
  for (int index = 0; index < 96; ++index) EXPECT_FALSE(view_.Image(index).isHidden()) << index;
  OneScale late("555555555555552");
  Refresh(view_, "C", late);
  EXPECT_EQ(msgBox_.Texts(), "9 Subscript out of range\n") << "a sum past the table is reported once";
}

TEST_F(FretboardViewTest, ShowsOneNoteForAnEmptyPattern) {
  OneScale scale("");
  Refresh(view_, "D", scale);
  EXPECT_EQ(InText(view_),
            ". . . . . . . . . . *D . . . . .\n"
            ". . . *D . . . . . . . . . . . *D\n"
            ". . . . . . . *D . . . . . . . .\n"
            "*D . . . . . . . . . . . *D . . .\n"
            ". . . . . *D . . . . . . . . . .\n"
            ". . . . . . . . . . *D . . . . .\n");
  EXPECT_EQ(scale.stepLine, "Scale Steps: ");
}

TEST_F(FretboardViewTest, ReportsANullPatternOnceAndShowsNothing) {
  OneScale scale(std::nullopt);
  Refresh(view_, "C", scale);
  EXPECT_EQ(msgBox_.Texts(), "9 Subscript out of range\n");
  EXPECT_TRUE(view_.Image(8).isHidden());
  EXPECT_EQ(scale.stepLine, "Scale Steps: ");
}

TEST_F(FretboardViewTest, ReportsAPatternThatIsNoNumberAndWritesStepWords) {
  OneScale scale("2x1");
  Refresh(view_, "C", scale);
  EXPECT_EQ(msgBox_.Texts(), "13 Type mismatch\n");
  EXPECT_EQ(scale.stepLine, "Scale Steps:   T  S");
}

TEST_F(FretboardViewTest, ShowsAndReportsNothingWithoutACurrentRecord) {
  OneScale scale("2212221");
  scale.hasRecord = false;
  Refresh(view_, "99", scale);
  EXPECT_EQ(msgBox_.Texts(), "");
  EXPECT_EQ(scale.reads, 0);
  EXPECT_TRUE(view_.Image(0).isHidden());
  EXPECT_EQ(scale.stepLine, "Scale Steps: ");
}

/// A window that writes degrees on the discs.
class ScaleWithDegrees : public OneScale {
 public:
  using OneScale::OneScale;
  [[nodiscard]] std::string LabelOf(const core::ScaleNote& note) const override { return std::to_string(note.degree); }
};

TEST_F(FretboardViewTest, WritesTheLabelsOfTheWindowAndKeepsTheNames) {
  ScaleWithDegrees degrees("75");
  Refresh(view_, "C", degrees);
  EXPECT_EQ(InText(view_).substr(0, 32), ". . . 2 . . . . *1 . . . . . . 2");
  EXPECT_EQ(view_.Image(3).Tag(), "G");
  EXPECT_EQ(view_.Image(3).accessibleName().toStdString(), "G, string 1, fret 3");
  OneScale names("75");
  Refresh(view_, "C", names);
  EXPECT_EQ(InText(view_).substr(0, 32), ". . . G . . . . *C . . . . . . G");
}

class BrokenScale : public OneScale {
 public:
  BrokenScale() : OneScale("2212221") {}
  std::optional<std::string> ScaleIntervals() override {
    throw core::Failure(3021, tests::TextMessage("The record is gone."));
  }
};

TEST_F(FretboardViewTest, ShowsTheDescriptionOfAPendingFailure) {
  BrokenScale scale;
  Refresh(view_, "C", scale);
  EXPECT_EQ(msgBox_.Texts(), "The record is gone.\n");
}

TEST_F(FretboardViewTest, KeepsANumericKeyThatIsANoteNumber) {
  OneScale scale("2212221");
  Refresh(view_, "5", scale);
  EXPECT_EQ(msgBox_.Texts(), "");
  EXPECT_EQ(view_.Image(8).Picture(), NotePicture::kScaleNote) << "no image is tagged 5";
  EXPECT_FALSE(view_.Image(8).isHidden()) << "the scale is built from note number 0";
}

TEST_F(FretboardViewTest, FallsBackToCForANumericKeyThatIsNoNoteNumber) {
  OneScale scale("2212221");
  Refresh(view_, "12", scale);
  EXPECT_EQ(view_.Image(8).Picture(), NotePicture::kKeyNote);
  EXPECT_EQ(msgBox_.Messages().size(), 1U) << "the conversion reports its bad index";
}

TEST_F(FretboardViewTest, KeepsAnUnknownKey) {
  for (const char* key : {"Db", "c", "", "H", "1.5", "99999999"}) {
    OneScale scale("2212221");
    Refresh(view_, key, scale);
    EXPECT_EQ(view_.Image(8).Picture(), NotePicture::kScaleNote) << key;
    EXPECT_FALSE(view_.Image(8).isHidden()) << key;
  }
  EXPECT_EQ(msgBox_.Texts(), "");
}

TEST_F(FretboardViewTest, ResetsThePicturesOfTheLabelImages) {
  OneScale scale("2212221");
  const QList<NoteImage*> labels = view_.findChildren<NoteImage*>(QStringLiteral("imgLabel"));
  labels.at(1)->show();
  labels.at(2)->show();
  Refresh(view_, "C", scale);
  for (const NoteImage* label : labels) EXPECT_EQ(label->Picture(), NotePicture::kKeyNote);
  EXPECT_TRUE(labels.at(1)->isHidden());
  EXPECT_FALSE(labels.at(2)->isHidden()) << "only the first two are hidden";
}

TEST_F(FretboardViewTest, DoesNotChangeTheFirstImageWhenNamesAreToggled) {
  OneScale scale("2212221");
  Refresh(view_, "C", scale);
  view_.ClearNoteNames();
  EXPECT_TRUE(view_.Image(0).NameDrawn());
  EXPECT_FALSE(view_.Image(1).NameDrawn());
  EXPECT_FALSE(view_.Image(95).NameDrawn());
  view_.PositionNotes();
  view_.Image(0).SetPicture(NotePicture::kKeyNote);
  view_.DrawNoteNames();
  EXPECT_FALSE(view_.Image(0).NameDrawn());
  EXPECT_TRUE(view_.Image(1).NameDrawn());
  EXPECT_TRUE(view_.Image(95).NameDrawn());
}

TEST_F(FretboardViewTest, ReplacesADrawnNameWhenAPictureIsAssigned) {
  OneScale scale("2212221");
  Refresh(view_, "C", scale);
  view_.HideNotes();
  view_.ShowNotes("C", scale);
  EXPECT_FALSE(view_.Image(0).NameDrawn());
}

TEST_F(FretboardViewTest, MovesThePlayMarkerAboveTheNamedNote) {
  view_.FlashNotes("img37");
  EXPECT_FALSE(view_.Picture1().isHidden());
  EXPECT_EQ(view_.Picture1().pos(), view_.Image(37).pos() - QPoint(0, 32));
  EXPECT_EQ(pumped_, 1);
  EXPECT_EQ(msgBox_.Texts(), "");
}

TEST_F(FretboardViewTest, ReportsAMissingControlByName) {
  view_.FlashNotes("img96");
  EXPECT_EQ(msgBox_.Texts(), "Control 'img96' not found\n");
  EXPECT_EQ(pumped_, 1) << "the later steps run all the same";
  EXPECT_FALSE(view_.Picture1().isHidden());
}

TEST_F(FretboardViewTest, PlaysTheFileOfAClickedNote) {
  view_.Image(16).click();
  view_.Image(0).click();
  view_.Image(95).click();
  EXPECT_THAT(player_.paths,
              testing::ElementsAre("/home/anna/tonalith/Octaves/23.wav", "/home/anna/tonalith/Octaves/28.wav",
                                   "/home/anna/tonalith/Octaves/19.wav"));
}

TEST_F(FretboardViewTest, PlaysEveryNoteByItsTagAndOctave) {
  view_.PlayOctaveNote("C", 2);
  view_.PlayOctaveNote("B", 5);
  view_.PlayOctaveNote("E", 9);
  view_.PlayOctaveNote("nonsense", 3);
  EXPECT_THAT(player_.paths, testing::ElementsAre(testing::EndsWith("/0.wav"), testing::EndsWith("/47.wav"),
                                                  testing::EndsWith("/4.wav"), testing::EndsWith("/12.wav")));
}

TEST_F(FretboardViewTest, ShowsTheDescriptionWhenTheSoundDeviceFails) {
  player_.broken = true;
  view_.Image(3).click();
  EXPECT_EQ(msgBox_.Texts(), "The sound device is gone.\n");
}

TEST(MapNoteNameToPositionIndex, HasItsOwnTableOfFlats) {
  const std::vector<std::pair<const char*, int>> table{
      {"C", 0}, {"C#", 1}, {"D", 2}, {"GB", 2}, {"D#", 3},  {"E", 4},  {"AB", 4},  {"F", 5},  {"F#", 6}, {"BB", 6},
      {"G", 7}, {"G#", 8}, {"A", 9}, {"DB", 9}, {"A#", 10}, {"B", 11}, {"EB", 11}, {"H", -1}, {"", -1},  {"CB", -1}};
  for (const auto& [name, number] : table) EXPECT_EQ(FretboardView::MapNoteNameToPositionIndex(name), number) << name;
  EXPECT_EQ(FretboardView::MapNoteNameToPositionIndex("gb"), 2);
  EXPECT_EQ(FretboardView::MapNoteNameToPositionIndex("f#"), 6);
}

}  // namespace
}  // namespace tonalith::views
