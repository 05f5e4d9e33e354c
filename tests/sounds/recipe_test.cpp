// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The text form of the recipe: its meaning, and the errors of invalid text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "synth/recipe_parser.h"

namespace tonalith::synth {
namespace {

const std::string kGuitar =
    "# a remark\n"
    "seed 7\n"
    "level -20\n"
    "\n"
    "columns        C2  C4\n"
    "decay          3   2   # seconds\n"
    "treble-decay   0.4 0.4\n"
    "pluck-position 0.2 0.2\n"
    "finger-hertz   2000 4000\n"
    "nail           -20 -20\n"
    "touch          -40 -40\n"
    "side-level     -8 -8\n"
    "side-cents     1 1\n"
    "side-decay     1.3 1.3\n"
    "body           6 6\n"
    "mode 100 12 -6 -\n";
const std::string kSets =
    "set Low chromatic from F#2 files 3 seconds 2 1 fade 0.2 silence 0.01\n"
    "set Scale major from C4 files 9 seconds 0.6 0.6 fade 0.1 silence 0.01\n";

std::string ErrorOf(const std::string& text) {
  try {
    ParseRecipe(text);
  } catch (const RecipeError& error) {
    return error.what();
  }
  return "";
}

TEST(Recipe, ContainsTheGuitarAndTheSets) {
  const voice::Recipe recipe = ParseRecipe(kGuitar + kSets);
  EXPECT_EQ(recipe.guitar.seed, 7U);
  EXPECT_EQ(recipe.guitar.levelDecibels, -20.0);
  ASSERT_EQ(recipe.guitar.modes.size(), 1U);
  EXPECT_EQ(recipe.guitar.modes[0].hertz, 100.0);
  EXPECT_NEAR(recipe.guitar.modes[0].gain, -0.5012, 0.0001);
  ASSERT_EQ(recipe.sets.size(), 2U);
  EXPECT_EQ(recipe.sets[0].folder, "Low");
  EXPECT_EQ(recipe.sets[0].PitchOf(0), 42);
  EXPECT_EQ(recipe.sets[0].PitchOf(2), 44);
  EXPECT_EQ(recipe.sets[0].SecondsOf(1), 1.5);
}

TEST(Recipe, StepsThroughAMajorScale) {
  const voice::SoundSet scale = ParseRecipe(kGuitar + kSets).sets[1];
  std::vector<int> pitches;
  pitches.reserve(9);
  for (int number = 0; number < 9; ++number) {
    pitches.push_back(scale.PitchOf(number));
  }
  EXPECT_THAT(pitches, testing::ElementsAre(60, 62, 64, 65, 67, 69, 71, 72, 74));
}

TEST(Recipe, InterpolatesBetweenTheColumnsAndClampsAtTheEnds) {
  const voice::Curve decay = ParseRecipe(kGuitar + kSets).guitar.decay;
  EXPECT_EQ(decay.At(24), 3.0);
  EXPECT_EQ(decay.At(36), 3.0);
  EXPECT_EQ(decay.At(48), 2.5);
  EXPECT_EQ(decay.At(60), 2.0);
  EXPECT_EQ(decay.At(90), 2.0);
}

TEST(Recipe, ReportsTheInvalidLineAndTheCause) {
  EXPECT_EQ(ErrorOf("seed 7\ndecay 2 2\n"), "line 2: \"columns\" has to come before \"decay\"");
  EXPECT_EQ(ErrorOf(kGuitar + "twang 3 3\n"), "line 17: \"twang\" is unknown");
  EXPECT_EQ(ErrorOf("seed x\n"), "line 1: \"x\" is no number (seed)");
  EXPECT_EQ(ErrorOf("seed 1.5\n"), "line 1: the seed is no whole number");
  EXPECT_EQ(ErrorOf("seed\n"), "line 1: the seed is missing");
  EXPECT_EQ(ErrorOf("seed 1 2\n"), "line 1: there are words too many, from \"2\"");
  EXPECT_EQ(ErrorOf("seed 1\nseed 2\n"), "line 2: \"seed\" stands there twice");
  EXPECT_EQ(ErrorOf("level 3\n"), "line 1: level 3 is out of its range");
  EXPECT_EQ(ErrorOf("columns H2\n"), "line 1: \"H2\" is no pitch such as C4 or F#3");
  EXPECT_EQ(ErrorOf("columns C4 C2\n"), "line 1: the pitches of the columns do not rise");
  EXPECT_EQ(ErrorOf("mode 100 12 0 x\n"), "line 1: \"x\" is no phase; + and - are");
}

TEST(Recipe, RefusesASetThatCannotBePlayed) {
  const std::string tail = " seconds 2 1 fade 0.2 silence 0.01\n";
  EXPECT_EQ(ErrorOf("set ../up major from C4 files 3" + tail), "line 1: \"../up\" is no plain folder name");
  EXPECT_EQ(ErrorOf("set Low minor from C4 files 3" + tail),
            "line 1: \"minor\" is no kind of steps; chromatic and major are");
  EXPECT_EQ(ErrorOf("set Low major at C4\n"), "line 1: \"at\" stands where \"from\" belongs");
  EXPECT_EQ(ErrorOf("set Low major from C4 files 3 seconds 1 1 fade 0.98 silence 0.01\n"),
            "line 1: fade and silence leave no time for the note");
  EXPECT_EQ(ErrorOf(kGuitar + "set Low major from C6 files 20" + tail), "Low leaves the range from G#0 to E7");
}

TEST(Recipe, RefusesATrebleDecayLongerThanTheDecay) {
  std::string text = kGuitar + kSets;
  text.replace(text.find("0.4 0.4"), 7, "0.4 2.5");
  EXPECT_EQ(ErrorOf(text), "treble-decay is not below decay");
}

TEST(Recipe, ReportsMissingEntries) {
  EXPECT_EQ(ErrorOf(""), "\"decay\" is missing");
  EXPECT_EQ(ErrorOf(kGuitar), "a recipe needs a mode and a set");
}

}  // namespace
}  // namespace tonalith::synth
