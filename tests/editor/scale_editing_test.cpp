// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/scale_editing.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/recording_msg_box.h"

namespace tonalith::editor {
namespace {

NoteSelection Notes(const std::string& names) {
  NoteSelection notes;
  std::istringstream words(names);
  for (std::string name; words >> name;) notes.set(static_cast<std::size_t>(core::CNoteToNumber(name)));
  return notes;
}

std::string Build(const std::string& names) { return ScaleIntervalBuild(Notes(names)); }

TEST(ScaleIntervalBuild, MakesTheMajorPatternOfTheWhiteKeys) { EXPECT_EQ(Build("C D E F G A B"), "2212221"); }
TEST(ScaleIntervalBuild, Makes435OfTheMajorTriad) { EXPECT_EQ(Build("C E G"), "435"); }
TEST(ScaleIntervalBuild, ClosesALoneCWithTheTwoDigitOctave) { EXPECT_EQ(Build("C"), "12"); }
TEST(ScaleIntervalBuild, ClosesALoneBWithASemitone) { EXPECT_EQ(Build("B"), "1"); }
TEST(ScaleIntervalBuild, StartsFromTheLowestSelectedNote) { EXPECT_EQ(Build("D F# A"), "433"); }
TEST(ScaleIntervalBuild, MakesTwelveSemitonesOfAllNotes) {
  EXPECT_EQ(ScaleIntervalBuild(NoteSelection().set()), "111111111111");
}
TEST(ScaleIntervalBuild, WritesDistancesOfTwoDigitsWithoutASeparator) {
  EXPECT_EQ(Build("C A#"), "102");
  EXPECT_EQ(Build("C B"), "111");
}
TEST(ScaleIntervalBuild, IsEmptyWithoutNotes) { EXPECT_EQ(Build(""), ""); }

TEST(CEditNotesToTones, NamesEachCharacter) {
  EXPECT_EQ(CEditNotesToTones("2"), "T");
  EXPECT_EQ(CEditNotesToTones("1"), "S");
  EXPECT_EQ(CEditNotesToTones("3"), "T1.5");
  EXPECT_EQ(CEditNotesToTones("4"), "T2");
}
TEST(CEditNotesToTones, SkipsBlanksAndLettersWithoutAMessage) { EXPECT_EQ(CEditNotesToTones(" 2 x1 "), "TS"); }
TEST(CEditNotesToTones, ReadsTwelveAsTwoCharacters) { EXPECT_EQ(CEditNotesToTones("12"), "ST"); }

TEST(StepWordsText, PutsABlankInFrontOfEachWord) {
  EXPECT_EQ(StepWordsText("2212221"), " T T S T T T S");
  EXPECT_EQ(StepWordsText("3 45"), " T1.5 T2 T2.5");
  EXPECT_EQ(StepWordsText(""), "");
}

TEST(NoteColours, AreStatedAsBlueGreenRed) {
  EXPECT_EQ(paint::ToRgb(kSelectedColours.back), 0xFFCCFFCCU);
  EXPECT_EQ(paint::ToRgb(kSelectedColours.fore), 0xFF000000U);
  EXPECT_EQ(paint::ToRgb(kUnselectedColours.back), 0xFFFFFFFFU);
  EXPECT_EQ(paint::ToRgb(kUnselectedColours.fore), 0xFFC4C4C4U);
}
TEST(NoteColours, ToggleThereAndBack) {
  EXPECT_EQ(Toggled(kSelectedColours), kUnselectedColours);
  EXPECT_EQ(Toggled(kUnselectedColours), kSelectedColours);
  EXPECT_TRUE(IsSelected(kSelectedColours));
  EXPECT_FALSE(IsHiddenInView(kSelectedColours));
  EXPECT_FALSE(IsSelected(kUnselectedColours));
  EXPECT_TRUE(IsHiddenInView(kUnselectedColours));
}

TEST(PatternNotes, AreBuiltFromC) {
  tests::RecordingMsgBox box;
  PatternNotes notes(box);
  EXPECT_EQ(notes.Of("1", "2212221"), Notes("C D E F G A B"));
  EXPECT_EQ(notes.Of("2", "345"), Notes("C D# G"));
  EXPECT_EQ(notes.Of("1", ""), Notes("C"));
  EXPECT_EQ(box.Texts(), "");
}
TEST(PatternNotes, FoldASecondOctaveOntoTheTwelveButtons) {
  tests::RecordingMsgBox box;
  EXPECT_EQ(PatternNotes(box).Of("1", "4334"), Notes("C D E G A#"));
}
TEST(PatternNotes, ReportAnInvalidPatternOnce) {
  tests::RecordingMsgBox box;
  PatternNotes notes(box);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(notes.Of("1", "22x").none());
  EXPECT_EQ(box.Texts(), "13 Type mismatch\n");
  EXPECT_TRUE(notes.Of("1", "99999").none());
  EXPECT_EQ(box.Messages().size(), 2U);
}
TEST(NotesOfTyped, AreReadWithoutAMessageWhileTheUserTypes) {
  EXPECT_EQ(NotesOfTyped("22"), Notes("C D E"));
  EXPECT_TRUE(NotesOfTyped("2x").none());
}

TEST(NoteExistsInScale, BuildsTheScaleOnTheNoteItself) {
  tests::RecordingMsgBox box;
  EXPECT_TRUE(NoteExistsInScale("C#", "2212221", box));
  EXPECT_TRUE(NoteExistsInScale("C", "", box));
  EXPECT_FALSE(NoteExistsInScale("Db", "2212221", box)) << "no note name, and C D E F G A B has no such text";
  EXPECT_EQ(box.Texts(), "");
}
TEST(NoteExistsInScale, IsFalseAndReportedOnceForAnInvalidPattern) {
  tests::RecordingMsgBox box;
  EXPECT_FALSE(NoteExistsInScale("C", "x", box));
  EXPECT_EQ(box.Texts(), "13 Type mismatch\n");
}

}  // namespace
}  // namespace tonalith::editor
