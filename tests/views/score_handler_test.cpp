// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/score_handler.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/failure.h"
#include "core/scale_construction.h"
#include "paint/music_font.h"
#include "paint/recording_surface.h"

namespace tonalith::views {
namespace {

constexpr const char* kStaff =
    "line 743,123 1033,123\n"
    "line 743,133 1033,133\n"
    "line 743,143 1033,143\n"
    "line 743,153 1033,153\n"
    "line 743,163 1033,163\n"
    "font \"Maestro\" 24pt\n"
    "print 38 at 766,103\n";

/// The drawing of a scale after staff and clef, and the note names, as text.
std::string Notes(std::int16_t key, std::string_view pattern) {
  paint::RecordingSurface surface;
  std::string names = "left over";
  ScoreHandler(&surface, core::BuildScale(key, core::IntervalsOf(pattern)), names);
  const std::string text = surface.AsText();
  EXPECT_EQ(text.substr(0, std::string(kStaff).size()), kStaff);
  return text.substr(std::min(text.size(), std::string(kStaff).size())) + "names" + names + "\n";
}

TEST(ScoreHandler, WritesCMajorFromTheLedgerLineBelowTheStaff) {
  EXPECT_EQ(Notes(0, "2212221"),
            "line 793,173 812,173\n"
            "print 119 at 796,123\n"
            "print 119 at 815,118\n"
            "print 119 at 833,113\n"
            "print 119 at 851,108\n"
            "print 119 at 870,103\n"
            "print 119 at 888,98\n"
            "print 119 at 906,93\n"
            "names C D E F G A B\n");
}

TEST(ScoreHandler, WritesFSharpMajorWithTheSharpInTheTextOfEachSharpNote) {
  EXPECT_EQ(Notes(6, "2212221"),
            "print 119 73 at 796,108\n"
            "print 119 73 at 815,103\n"
            "print 119 73 at 833,98\n"
            "print 119 at 851,93\n"
            "print 119 73 at 870,88\n"
            "print 119 73 at 888,83\n"
            "print 119 at 906,73\n"
            "names F# G# A# B C# D# F\n");
}

TEST(ScoreHandler, RisesAboveTheTopLineInTheKeyOfA) {
  EXPECT_EQ(Notes(9, "2212221"),
            "print 119 at 796,98\n"
            "print 119 at 815,93\n"
            "print 119 73 at 833,88\n"
            "print 119 at 851,83\n"
            "print 119 at 870,78\n"
            "print 119 73 at 888,73\n"
            "print 119 73 at 906,68\n"
            "names A B C# D E F# G#\n");
}

TEST(ScoreHandler, WritesTheChromaticScale) {
  EXPECT_EQ(Notes(0, "111111111111"),
            "line 793,173 812,173\n"
            "print 119 at 796,123\n"
            "line 812,173 831,173\n"
            "print 119 73 at 815,123\n"
            "print 119 at 833,118\n"
            "print 119 73 at 851,118\n"
            "print 119 at 870,113\n"
            "print 119 at 888,108\n"
            "print 119 73 at 906,108\n"
            "print 119 at 925,103\n"
            "print 119 73 at 943,103\n"
            "print 119 at 961,98\n"
            "print 119 73 at 980,98\n"
            "print 119 at 998,93\n"
            "names C C# D D# E F F# G G# A A# B\n");
}

TEST(ScoreHandler, WritesAFiveNoteScaleWithLedgerLinesAboveTheStaff) {
  EXPECT_EQ(Notes(11, "32232"),
            "print 119 at 796,93\n"
            "print 119 at 815,83\n"
            "print 119 at 833,78\n"
            "print 119 73 at 851,73\n"
            "line 867,113 886,113\n"
            "print 119 at 870,63\n"
            "names B D E F# A\n");
}

TEST(ScoreHandler, DrawsEveryLedgerLineUpToTheNote) {
  EXPECT_EQ(Notes(11, "777"),
            "print 119 at 796,93\n"
            "print 119 73 at 815,73\n"
            "line 830,113 849,113\n"
            "line 830,103 849,103\n"
            "print 119 73 at 833,53\n"
            "names B F# C#\n");
}

TEST(ScoreHandler, RepeatsANoteForAnIntervalOfZero) {
  EXPECT_EQ(Notes(4, "00"),
            "print 119 at 796,113\n"
            "print 119 at 815,113\n"
            "names E E\n");
}

TEST(ScoreHandler, WritesNoMoreNotesThanAScaleCanHave) {
  paint::RecordingSurface surface;
  std::string names;
  ScoreHandler(&surface, core::BuildScale(0, std::vector<std::int16_t>(10000, 9)), names);
  EXPECT_EQ(std::count(names.begin(), names.end(), ' '), 36);
  const std::string text = surface.AsText();
  std::size_t notes = 0;
  for (std::size_t at = text.find("print 119"); at != std::string::npos; at = text.find("print 119", at + 1)) ++notes;
  EXPECT_EQ(notes, 36U);
}

TEST(ScoreHandler, SwitchesTheTargetToPixelsAndClearsIt) {
  paint::RecordingSurface surface;
  surface.Line(15, 15, 30, 15);
  std::string names;
  ScoreHandler(&surface, core::BuildScale(0, std::vector<std::int16_t>{12}), names);
  EXPECT_EQ(surface.GetScaleMode(), paint::ScaleMode::kPixels);
  EXPECT_EQ(surface.AsText(), kStaff + std::string("line 793,173 812,173\nprint 119 at 796,123\n"));
}

TEST(ScoreHandler, DrawsNothingWithoutATarget) {
  std::string names = "as before";
  ScoreHandler(nullptr, core::BuildScale(0, core::IntervalsOf("22")), names);
  EXPECT_EQ(names, "as before");
}

TEST(ScoreHandler, FailsOnAnEmptyIntervalListAfterClearingTheTarget) {
  paint::RecordingSurface surface;
  surface.Line(15, 15, 30, 15);
  std::string names = "as before";
  try {
    ScoreHandler(&surface, core::BuildScale(0, {}), names);
    FAIL() << "no failure";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.Number(), core::failure_number::kSubscriptOutOfRange);
  }
  EXPECT_EQ(surface.AsText(), "");
  EXPECT_EQ(names, "as before");
}

TEST(ScoreHandler, KeepsTheDrawingBeforeAnInvalidNoteNumber) {
  paint::RecordingSurface surface;
  std::string names = "as before";
  const core::Scale scale{{-1, 1, {47}}, {1, 2, {49}}};
  EXPECT_THROW(ScoreHandler(&surface, scale, names), core::Failure);
  EXPECT_EQ(surface.AsText(), kStaff);
  EXPECT_EQ(names, "");
}

}  // namespace
}  // namespace tonalith::views
