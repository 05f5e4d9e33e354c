// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_layout.h"

#include <gtest/gtest.h>

#include <sstream>

#include "core/failure.h"
#include "core/octave_sounds.h"

namespace tonalith::views {
namespace {

using core::Neck;
using core::Pitch;
using paint::Twips;

/// The note names of a string, open string first, separated by blanks.
std::string TagsOfRow(const FretboardLayout& layout, int row) {
  std::string tags;
  for (int position = 0; position < layout.Positions(); ++position) {
    if (position > 0) tags += ' ';
    tags += layout.Note(layout.IndexAt(row, position)).tag;
  }
  return tags;
}

/// The octave numbers of a string, one digit for each position.
std::string OctavesOfRow(const FretboardLayout& layout, int row) {
  std::string octaves;
  for (int position = 0; position < layout.Positions(); ++position) {
    octaves += std::to_string(layout.Note(layout.IndexAt(row, position)).pitch.Octave());
  }
  return octaves;
}

TEST(FretboardLayout, HasSixStringsWithSixteenPositionsEach) {
  const FretboardLayout layout(core::Neck::Standard());
  EXPECT_EQ(layout.Rows(), 6);
  EXPECT_EQ(layout.Positions(), 16);
  EXPECT_EQ(layout.NoteCount(), 96);
  EXPECT_EQ(layout.IndexAt(6, 15), 95);
}

TEST(FretboardLayout, TagsEveryNoteOfStandardTuning) {
  const FretboardLayout layout(core::Neck::Standard());
  EXPECT_EQ(TagsOfRow(layout, 1), "E F F# G G# A A# B C C# D D# E F F# G");
  EXPECT_EQ(TagsOfRow(layout, 2), "B C C# D D# E F F# G G# A A# B C C# D");
  EXPECT_EQ(TagsOfRow(layout, 3), "G G# A A# B C C# D D# E F F# G G# A A#");
  EXPECT_EQ(TagsOfRow(layout, 4), "D D# E F F# G G# A A# B C C# D D# E F");
  EXPECT_EQ(TagsOfRow(layout, 5), "A A# B C C# D D# E F F# G G# A A# B C");
  EXPECT_EQ(TagsOfRow(layout, 6), "E F F# G G# A A# B C C# D D# E F F# G");
}

TEST(FretboardLayout, NumbersOctavesThatChangeAtC) {
  const FretboardLayout layout(core::Neck::Standard());
  EXPECT_EQ(OctavesOfRow(layout, 1), "4444444455555555");
  EXPECT_EQ(OctavesOfRow(layout, 2), "3444444444444555");
  EXPECT_EQ(OctavesOfRow(layout, 3), "3333344444444444");
  EXPECT_EQ(OctavesOfRow(layout, 4), "3333333333444444");
  EXPECT_EQ(OctavesOfRow(layout, 5), "2223333333333334");
  EXPECT_EQ(OctavesOfRow(layout, 6), "2222222233333333");
}

TEST(FretboardLayout, NumbersTheSoundFilesBySemitoneFromC2) {
  const FretboardLayout layout(core::Neck::Standard());
  const auto file = [&](int index) { return core::OctaveFileNumber(layout.Note(index).pitch); };
  EXPECT_EQ(file(0), 28);
  EXPECT_EQ(file(16), 23);
  EXPECT_EQ(file(80), 4);
  EXPECT_EQ(file(95), 19);
  EXPECT_EQ(file(15), 43);
}

TEST(FretboardLayout, TakesTheBareNoteNumberOutsideOctavesTwoToFive) {
  EXPECT_EQ(core::OctaveFileNumber(Pitch::Of(4, 1)), 4);
  EXPECT_EQ(core::OctaveFileNumber(Pitch::Of(4, 6)), 4);
  EXPECT_EQ(core::OctaveFileNumber(Pitch::Of(11, 5)), 47);
  EXPECT_EQ(core::OctaveFileNumber(Pitch::Of(0, 2)), 0);
}

TEST(FretboardLayout, NamesEveryNoteByStringAndFret) {
  const FretboardLayout layout(core::Neck::Standard());
  EXPECT_EQ(layout.Note(0).accessibleName, "E, string 1, open");
  EXPECT_EQ(layout.Note(18).accessibleName, "C#, string 2, fret 2");
  EXPECT_EQ(layout.Note(95).accessibleName, "G, string 6, fret 15");
}

TEST(FretboardLayout, LeavesPositionZeroAtTheBaseImage) {
  EXPECT_EQ(FretboardLayout::Left(Twips{600}, 0).value, 600);
  EXPECT_EQ(FretboardLayout::Left(Twips{1234}, 0).value, 1234);
}

TEST(FretboardLayout, PutsPosition15At14100TwipsFromTheBase) {
  EXPECT_EQ(FretboardLayout::Left(Twips{600}, 15).value - 600, 14100);
}

TEST(FretboardLayout, FailsIfTheLeftEdgeExceeds16Bits) {
  EXPECT_EQ(FretboardLayout::Left(Twips{18667}, 15).value, 32767);
  try {
    static_cast<void>(FretboardLayout::Left(Twips{18668}, 15));
    FAIL() << "no failure";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.Number(), core::failure_number::kOverflow);
  }
}

TEST(FretboardLayout, PutsANote250TwipsAboveItsLine) { EXPECT_EQ(FretboardLayout::Top(Twips{4200}).value, 3950); }

TEST(FretboardLayout, PutsTheFretLineAndTheMarkerNextToTheNote) {
  EXPECT_EQ(FretboardLayout::FretX(Twips{2480}).value, 3130);
  EXPECT_EQ(FretboardLayout::MarkerLeft(Twips{3420}).value, 3675);
  const Twips below = FretboardLayout(core::Neck::Standard()).FirstFret().y2;
  EXPECT_EQ(FretboardLayout::MarkerTop(below).value, below.value + 250);
}

TEST(FretboardLayout, FirstFretFollowsThePlacementRule) {
  EXPECT_EQ(FretboardLayout(core::Neck::Standard()).FirstFret().x1,
            FretboardLayout::FretX(FretboardLayout::Left(FretboardLayout::kBaseLeft, 1)));
}

/// The y coordinates of a line.
std::string Height(const LineGeometry& line) {
  return std::to_string(line.y1.value) + " to " + std::to_string(line.y2.value);
}

TEST(FretboardLayout, NutAndFretsExtendBeyondTheOuterStrings) {
  EXPECT_EQ(FretboardLayout::StringLine(1).y1.value, 4200);
  EXPECT_EQ(FretboardLayout::StringLine(6).y1.value, 6600);
  EXPECT_EQ(Height(FretboardLayout(core::Neck::Standard()).NutLine()), "3840 to 6885");
  EXPECT_EQ(Height(FretboardLayout(core::Neck::Standard()).FirstFret()), "3870 to 6855");
  EXPECT_EQ(FretboardLayout::AreaOf(Neck::Standard()), QRect(0, 226, 1080, 276));
}

TEST(FretboardLayout, StringsRunFromTheFirstDiscToTheEndOfTheNeck) {
  const FretboardLayout layout(core::Neck::Standard());
  for (int row = 1; row <= 6; ++row) {
    const LineGeometry string = FretboardLayout::StringLine(row);
    EXPECT_EQ(string.x1, FretboardLayout::kBaseLeft) << row;
    EXPECT_EQ(string.x2.value, 15510) << row;
    EXPECT_EQ(string.y2, string.y1) << row;
  }
  EXPECT_EQ(layout.NutLine().x1.value, 1220);
  EXPECT_EQ(layout.NutLine().x2, layout.NutLine().x1);
  EXPECT_EQ(layout.FirstFret().x2, layout.FirstFret().x1);
}

TEST(FretboardLayout, AnotherStringAddsItsSpacingAtTheBottom) {
  Neck seven = Neck::Standard();
  seven.openStrings.push_back(Pitch::Of(11, 1));
  const FretboardLayout layout(seven);
  EXPECT_EQ(layout.NoteCount(), 112);
  EXPECT_EQ(layout.Note(111).accessibleName, "D, string 7, fret 15");
  EXPECT_EQ(Height(layout.NutLine()), "3840 to 7365");
  EXPECT_EQ(Height(layout.FirstFret()), "3870 to 7335");
  EXPECT_EQ(FretboardLayout::AreaOf(seven), FretboardLayout::AreaOf(Neck::Standard()).adjusted(0, 0, 0, 32));
}

TEST(FretboardLayout, SupportsOtherTunings) {
  const FretboardLayout bass(Neck{{Pitch::Of(7, 2), Pitch::Of(2, 2), Pitch::Of(9, 1), Pitch::Of(4, 1)}, 13});
  EXPECT_EQ(bass.NoteCount(), 52);
  EXPECT_EQ(TagsOfRow(bass, 4), "E F F# G G# A A# B C C# D D# E");
  EXPECT_EQ(OctavesOfRow(bass, 4), "1111111122222");
}

/// Each word is a string of a small neck: `o` is a visible note, `.` a hidden one, `@` the start.
std::string Navigate(const std::string& rows, Move move) {
  std::istringstream lines(rows);
  std::string cells;
  std::string line;
  int rowCount = 0;
  std::size_t width = 0;
  while (lines >> line) {
    cells += line;
    width = line.size();
    ++rowCount;
  }
  const FretboardLayout layout(
      Neck{std::vector<Pitch>(static_cast<std::size_t>(rowCount), Pitch::Of(4, 2)), static_cast<int>(width)});
  std::vector<bool> visible;
  for (const char cell : cells) visible.push_back(cell != '.');
  const auto from = static_cast<int>(cells.find('@'));
  const std::optional<int> to = layout.Neighbour(from, move, visible);
  return to ? "row " + std::to_string(layout.Note(*to).row) + " position " + std::to_string(layout.Note(*to).position)
            : "nowhere";
}

TEST(FretboardNavigation, MovesAlongTheStringToTheNextVisibleNote) {
  EXPECT_EQ(Navigate("o.@..o", Move::kRight), "row 1 position 5");
  EXPECT_EQ(Navigate("o.@..o", Move::kLeft), "row 1 position 0");
  EXPECT_EQ(Navigate("..@...", Move::kRight), "nowhere");
}

TEST(FretboardNavigation, MovesToTheNearestNoteOfTheNeighbouringString) {
  EXPECT_EQ(Navigate("o..o.o ...@..", Move::kUp), "row 1 position 3");
  EXPECT_EQ(Navigate("..@... o...o.", Move::kDown), "row 2 position 0");
  EXPECT_EQ(Navigate("..@... o..o..", Move::kDown), "row 2 position 3");
  EXPECT_EQ(Navigate("..@... ...... o.....", Move::kDown), "row 3 position 0") << "a string without notes is skipped";
  EXPECT_EQ(Navigate("..@...", Move::kUp), "nowhere");
}

TEST(FretboardNavigation, MovesToTheEndsOfTheString) {
  EXPECT_EQ(Navigate(".o.@.oo.", Move::kHome), "row 1 position 1");
  EXPECT_EQ(Navigate(".o.@.oo.", Move::kEnd), "row 1 position 6");
  EXPECT_EQ(Navigate("...@....", Move::kHome), "nowhere");
}

TEST(FretboardLayout, NumbersEveryFretWithAnInlay) {
  EXPECT_EQ(FretboardLayout(core::Neck::Standard()).NumberedFrets(), (std::vector<int>{3, 5, 7, 9, 12, 15}));
  EXPECT_EQ(FretboardLayout::MarkedFrets(), (std::vector<int>{3, 5, 7, 9, 12}));
}

TEST(FretboardLayout, HasInlaysAtTheUsualFrets) {
  std::string frets;
  for (int fret = 0; fret <= 15; ++fret) {
    if (FretboardLayout::HasInlay(fret))
      frets += std::to_string(fret) + (FretboardLayout::HasDoubleInlay(fret) ? "double " : " ");
  }
  EXPECT_EQ(frets, "3 5 7 9 12double 15 ");
}

}  // namespace
}  // namespace tonalith::views
