// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The shapes of the room against the second implementation in shape_rules.h.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

#include "instrument/instruments.h"
#include "instrument/shape_rules.h"

namespace tonalith::instrument::tests {
namespace {

RuledShapes RulesFor(const Instrument& instrument, const RuledChord& type, int root, std::optional<int> bass = {}) {
  return {&instrument, &type, root, bass};
}

ShapeList ShapesFor(const RuledShapes& rules) {
  Chord chord{theory::PitchClass(rules.root), *theory::Formula::Parse(rules.type->degrees), std::nullopt};
  if (rules.bass) chord.bass = theory::PitchClass(*rules.bass);
  return ShapesOf(*rules.instrument, chord, {.highestFret = rules.highestFret});
}

std::string Name(const RuledShapes& rules, const Frets& frets = {}) {
  return rules.instrument->Name() + ", " + rules.type->degrees + " on " + std::to_string(rules.root) + ": " +
         ToText(frets);
}

void ExpectRulesHold(const RuledShapes& rules) {
  const ShapeList list = ShapesFor(rules);
  EXPECT_TRUE(list.isComplete) << Name(rules);
  for (const Shape& shape : list.shapes) {
    ASSERT_EQ(rules.BrokenRule(shape.frets), "") << Name(rules, shape.frets);
    ASSERT_EQ(WrongFingering(shape.frets, shape.fingering), "") << Name(rules, shape.frets);
    ASSERT_EQ(rules.Omitted(shape.frets), shape.missing.Size()) << Name(rules, shape.frets);
  }
}

void ExpectNoneIsMissing(const RuledShapes& rules) {
  const std::set<Frets> expected = rules.All();
  std::set<Frets> found;
  for (const Shape& shape : ShapesFor(rules).shapes) {
    EXPECT_TRUE(found.insert(shape.frets).second) << "twice: " << Name(rules, shape.frets);
  }
  for (const Frets& frets : expected) ASSERT_TRUE(found.count(frets) != 0) << "missing: " << Name(rules, frets);
  EXPECT_EQ(found.size(), expected.size()) << Name(rules);
}

/// What the order of the shapes follows; the known ones, which come first, are left out by the caller.
std::array<int, 6> OrderOf(const RuledShapes& rules, const Shape& shape) {
  return {rules.BassOf(shape.frets) == rules.root ? 0 : 1,
          rules.Omitted(shape.frets),
          InnerMutedStrings(shape.frets),
          shape.fingering.count,
          SpanOf(shape.frets),
          LowestStopped(shape.frets)};
}

bool IsPartOfAny(const RuledShapes& rules, const Frets& frets, const std::vector<Shape>& shapes) {
  return std::any_of(shapes.begin(), shapes.end(), [&](const Shape& other) {
    return IsPart(frets, other.frets) && rules.BassOf(frets) == rules.BassOf(other.frets);
  });
}

void ExpectOrder(const RuledShapes& rules) {
  const std::vector<Shape> shapes = ShapesFor(rules).shapes;
  Chord chord{theory::PitchClass(rules.root), *theory::Formula::Parse(rules.type->degrees), std::nullopt};
  std::size_t known = 0;
  for (const Frets& frets : KnownShapesOf(BuiltInKnownShapes(), *rules.instrument, chord)) {
    known += known < shapes.size() && shapes[known].frets == frets ? 1 : 0;
  }
  const Shape* last = nullptr;
  for (std::size_t i = known; i < shapes.size(); ++i) {
    const Frets& frets = shapes[i].frets;
    const std::vector<Shape> later(shapes.begin() + static_cast<std::ptrdiff_t>(i) + 1, shapes.end());
    ASSERT_FALSE(IsPartOfAny(rules, frets, later)) << Name(rules, frets);
    if (IsPartOfAny(rules, frets, shapes)) continue;
    // Those that are no parts of others follow the criteria strictly.
    if (last != nullptr) {
      ASSERT_LE(OrderOf(rules, *last), OrderOf(rules, shapes[i])) << Name(rules, frets);
    }
    last = &shapes[i];
  }
}

const RuledChord& TypeOf(const std::string& degrees) {
  return *std::find_if(RuledChords().begin(), RuledChords().end(),
                       [&](const RuledChord& chord) { return chord.degrees == degrees; });
}

TEST(ShapesByRules, OfEveryInstrumentKeepAllRules) {
  int root = 0;
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    for (const RuledChord& type : RuledChords()) {
      // A hundred thousand shapes of large chords on nine strings would take minutes.
      if (entry.instrument.Strings() > 7 && type.all.size() > 4) continue;
      // The roots take turns, so that each type meets each root on some instrument.
      ExpectRulesHold(RulesFor(entry.instrument, type, ++root % 12));
    }
  }
}

TEST(ShapesByRules, WithABassKeepAllRules) {
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    for (const int bass : {0, 2, 4, 7}) {
      ExpectRulesHold(RulesFor(entry.instrument, TypeOf("1 3 5"), 0, bass));
      ExpectRulesHold(RulesFor(entry.instrument, TypeOf("1 b3 5 b7"), 9, bass));
    }
  }
}

TEST(ShapesByRules, OnTheGuitarNoneIsMissing) {
  for (const RuledChord& type : RuledChords()) {
    for (const int root : {0, 4, 7, 10}) ExpectNoneIsMissing(RulesFor(DefaultInstrument(), type, root));
  }
}

TEST(ShapesByRules, WithABassNoneIsMissing) {
  for (const char* degrees : {"1 3 5", "1 b3 5 b7", "1 3 5 b7 9"}) {
    for (int bass = 0; bass < 12; ++bass) ExpectNoneIsMissing(RulesFor(DefaultInstrument(), TypeOf(degrees), 0, bass));
  }
}

TEST(ShapesByRules, OnOtherInstrumentsNoneIsMissing) {
  for (const char* id : {"ukulele", "banjo", "bass", "mandolin", "charango", "balalaika"}) {
    for (const RuledChord& type : RuledChords()) ExpectNoneIsMissing(RulesFor(Named(id), type, 7));
  }
  for (const char* id : {"guitar-open-g", "guitar-nashville", "guitar-all-fifths"}) {
    for (const char* degrees : {"1 3 5", "1 3 5 b7"}) ExpectNoneIsMissing(RulesFor(Named(id), TypeOf(degrees), 7));
  }
}

TEST(ShapesByRules, AreRankedByTheirCriteria) {
  for (const char* degrees : {"1 3 5", "1 b3 5 b7", "1 3 5 b7 9 13"}) {
    for (const char* id : {"guitar", "ukulele", "banjo", "guitar-dadgad"}) {
      ExpectOrder(RulesFor(Named(id), TypeOf(degrees), 7));
    }
  }
}

TEST(ShapesByRules, TheRulesRefuseWhatNobodyCanPlay) {
  const RuledShapes c = RulesFor(DefaultInstrument(), RuledChords().front(), 0);
  const auto broken = [&](const std::string& frets) { return c.BrokenRule(FretsFrom(frets)); };
  EXPECT_EQ(broken("x32010"), "");
  EXPECT_EQ(broken("x32011"), "a note is not in the chord");
  EXPECT_EQ(broken("x3x0xx"), "a note is missing");
  EXPECT_EQ(broken("x3x05x"), "");
  EXPECT_EQ(broken("xxxxxx"), "all strings are muted");
  EXPECT_EQ(broken("3x2x1x"), "two inner strings are muted");
  EXPECT_EQ(broken("x3x01x"), "a note is missing");
  EXPECT_EQ(broken("83201x"), "the span is too wide");
  EXPECT_EQ(FewestFingers(FretsFrom("133211")), 3);
  EXPECT_EQ(FewestFingers(FretsFrom("x02220")), 1);
  EXPECT_EQ(FewestFingers(FretsFrom("212121")), 4);
  EXPECT_EQ(FewestFingers(FretsFrom("x12345")), 5);
}

}  // namespace
}  // namespace tonalith::instrument::tests
