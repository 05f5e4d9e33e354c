// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The column Formula of all tables: its notes are those of the pattern, and its letters follow the rules at the top of
// scales.tsv. Formulas of rows that are made from another row follow from that row.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "content/degrees.h"
#include "content/scale_library.h"
#include "core/field_limits.h"
#include "theory/formula.h"

namespace tonalith::content_tests {
namespace {

using Degrees = std::vector<SpelledDegree>;

const ScaleLibrary& Library() { return ScaleLibrary::WithPacks(); }

Degrees DegreesOf(const ScaleRow& row) { return ReadFormula(row.formula); }

std::vector<int> SemitonesOf(const Degrees& degrees) {
  std::vector<int> semitones;
  for (const SpelledDegree& degree : degrees) semitones.push_back(degree.semitones);
  return semitones;
}

std::vector<int> NumbersOf(const Degrees& degrees) {
  std::vector<int> numbers;
  for (const SpelledDegree& degree : degrees) numbers.push_back(degree.number);
  return numbers;
}

template <typename Key>
int MostEqual(const Degrees& degrees, Key key) {
  std::map<int, int> counts;
  int most = 0;
  for (const SpelledDegree& degree : degrees) most = std::max(most, ++counts[key(degree)]);
  return most;
}

TEST(Formulas, HaveTheNotesOfTheirPattern) {
  EXPECT_EQ(Library().Rows().size(), 777U);
  for (const ScaleRow& row : Library().Rows()) {
    std::vector<int> notes = SemitonesOf(DegreesOf(row));
    for (int& note : notes) note %= 12;
    std::ranges::sort(notes);
    EXPECT_EQ(notes, Offsets(row.scaleIntervals)) << row.scaleName << ": " << row.formula;
  }
}

TEST(Formulas, AscendFromTheRoot) {
  for (const ScaleRow& row : Library().Rows()) {
    const Degrees degrees = DegreesOf(row);
    EXPECT_EQ(degrees.front(), (SpelledDegree{1, 0})) << row.scaleName;
    EXPECT_TRUE(std::ranges::is_sorted(NumbersOf(degrees))) << row.scaleName << ": " << row.formula;
    EXPECT_TRUE(std::ranges::is_sorted(SemitonesOf(degrees))) << row.scaleName << ": " << row.formula;
    EXPECT_EQ(ToText(degrees), row.formula) << row.scaleName;
    EXPECT_LE(row.formula.size(), core::kLongestFormula) << row.scaleName;
  }
}

TEST(Formulas, HaveNoNumberOrLetterThreeTimes) {
  for (const ScaleRow& row : Library().Rows()) {
    const Degrees degrees = DegreesOf(row);
    EXPECT_LE(MostEqual(degrees, [](const SpelledDegree& degree) { return degree.number; }), 2) << row.scaleName;
    EXPECT_LE(MostEqual(degrees, [](const SpelledDegree& degree) { return degree.Letter(); }), 2) << row.scaleName;
  }
}

TEST(Formulas, OfScalesAreWithinTheOctave) {
  for (const ScaleRow& row : Library().Scales()) {
    EXPECT_EQ(SemitonesOf(DegreesOf(row)), Offsets(row.scaleIntervals)) << row.scaleName;
    EXPECT_LE(DegreesOf(row).back().number, 7) << row.scaleName;
  }
}

TEST(Formulas, OfSevenNotesHaveEachNumberOnce) {
  int checked = 0;
  for (const ScaleRow& row : Library().Scales()) {
    // A blues scale keeps its blue notes.
    if (row.scaleIntervals.size() != 7 || row.scaleName == "Mixed-third blues") continue;
    EXPECT_EQ(NumbersOf(DegreesOf(row)), (std::vector<int>{1, 2, 3, 4, 5, 6, 7})) << row.scaleName;
    ++checked;
  }
  EXPECT_GE(checked, 230);
}

// The diminished seventh is the only chord that is commonly written with one.
TEST(Formulas, HaveDoubleAccidentalsOnlyWhereTheLettersNeedThem) {
  for (const ScaleRow& row : Library().Rows()) {
    const bool hasDouble = row.formula.find("bb") != std::string::npos || row.formula.find("##") != std::string::npos;
    if (!hasDouble) continue;
    const bool isSevenNotes = !row.isChord && row.scaleIntervals.size() == 7;
    const bool isDiminishedSeventh = row.isChord && row.scaleName.starts_with("Diminished 7");
    // Six notes of a parent with seven.
    EXPECT_TRUE(isSevenNotes || isDiminishedSeventh || row.scaleName == "Raga Chandrajyoti") << row.scaleName;
  }
  EXPECT_EQ(Library().Find("Diminished 7 (dim7)")->formula, "1 b3 b5 bb7");
}

TEST(Formulas, AreReadByTheProgram) {
  for (const ScaleRow& row : Library().Rows()) {
    const auto formula = theory::Formula::Parse(row.formula);
    ASSERT_TRUE(formula) << row.scaleName;
    EXPECT_EQ(formula->ToText(), row.formula);
    EXPECT_EQ(formula->Set().Pattern(), row.scaleIntervals) << row.scaleName;
  }
}

/// "2, 4 and b6".
Degrees DegreeList(const std::string& text) {
  return text.empty() ? Degrees() : ReadFormula(std::regex_replace(text, std::regex(", | and "), " "));
}

/// Without the degrees in `away`; "3" also means the only third of the formula, such as b3.
void Remove(Degrees& degrees, const Degrees& away) {
  for (const SpelledDegree& degree : away) {
    if (std::erase(degrees, degree) > 0) continue;
    std::erase_if(degrees, [&](const SpelledDegree& other) { return other.number == degree.number; });
  }
}

/// The formula that the source of a row defines by another row, if it does.
std::optional<Degrees> FormulaBySource(const ScaleRow& row) {
  std::smatch parts;
  const std::string rule = row.source.substr(0, row.source.find("; Forte"));
  static const std::regex rotation("by construction: (.+) from note ([2-9])");
  if (std::regex_match(rule, parts, rotation)) {
    const ScaleRow* const parent = Library().Find(parts[1].str());
    if (parent == nullptr || parent->isChord != row.isChord) return std::nullopt;
    return Rotated(DegreesOf(*parent), std::stoul(parts[2]) - 1);
  }
  static const std::string list = "([b#0-9]+(?:, [b#0-9]+)*(?: and [b#0-9]+)?)";
  static const std::regex change("by construction: (.+?)(?: without " + list + ")?(?:,? with " + list + ")?");
  if (!std::regex_match(rule, parts, change) || (!parts[2].matched && !parts[3].matched)) return std::nullopt;
  const ScaleRow* const parent = Library().Find(parts[1].str());
  if (parent == nullptr) return std::nullopt;
  Degrees degrees = DegreesOf(*parent);
  Remove(degrees, DegreeList(parts[2]));
  for (const SpelledDegree& degree : DegreeList(parts[3])) degrees.push_back(degree);
  return Sorted(degrees);
}

TEST(Formulas, FollowFromTheSourceOfTheirRow) {
  // Seven notes need each number once, so one row is spelled otherwise than its source; another has b2 instead of #1.
  const std::set<std::string> others = {"Hungarian major", "Two-semitone tritone scale"};
  int checked = 0;
  for (const ScaleRow& row : Library().Rows()) {
    const std::optional<Degrees> expected = FormulaBySource(row);
    if (!expected || others.contains(row.scaleName)) continue;
    EXPECT_EQ(row.formula, ToText(*expected)) << row.scaleName << ": " << row.source;
    ++checked;
  }
  EXPECT_GE(checked, 90);
}

TEST(Formulas, OfModesAreRotationsOfTheirParents) {
  int checked = 0;
  for (const ScaleRow& row : Library().Rows()) {
    std::smatch parts;
    if (!std::regex_search(row.source, parts, std::regex("^rotation of ([a-z ]+)"))) continue;
    // Melodic minor is the ascending one, the first row of that name.
    const auto parent = std::ranges::find(Library().Rows(), parts[1].str(),
                                          [](const ScaleRow& scale) { return Lowered(PlainName(scale)); });
    ASSERT_NE(parent, Library().Rows().end()) << row.source;
    const Degrees degrees = DegreesOf(*parent);
    std::set<std::string> modes;
    for (std::size_t first = 0; first < degrees.size(); ++first) modes.insert(ToText(Rotated(degrees, first)));
    EXPECT_TRUE(modes.contains(row.formula)) << row.scaleName << ": " << row.formula;
    ++checked;
  }
  EXPECT_GE(checked, 40);
}

/// "Dorian flat 2" as the formula of Dorian with b2, if the name has this form.
std::optional<Degrees> FormulaByName(const ScaleRow& row) {
  static const std::map<std::string, std::string> kSigns = {
      {"double flat", "bb"}, {"flat", "b"}, {"sharp", "#"}, {"natural", ""}};
  std::smatch parts;
  const std::string name = PlainName(row);
  static const std::regex form("(.+?)((?: (?:double flat|flat|sharp|natural) [2-7])+)");
  if (row.isChord || !std::regex_match(name, parts, form)) return std::nullopt;
  const ScaleRow* const parent = Library().Find(parts[1].str());
  if (parent == nullptr || parent->isChord) return std::nullopt;
  Degrees degrees = DegreesOf(*parent);
  if (degrees.size() != DegreesOf(row).size()) return std::nullopt;
  const std::string changes = parts[2];
  static const std::regex change("(double flat|flat|sharp|natural) ([2-7])");
  for (std::sregex_iterator found(changes.begin(), changes.end(), change); found != std::sregex_iterator(); ++found) {
    Alter(degrees, ReadDegree(kSigns.at((*found)[1]) + (*found)[2].str()));
  }
  return degrees;
}

TEST(Formulas, FollowFromNamesWithAlteredDegrees) {
  int checked = 0;
  for (const ScaleRow& row : Library().Rows()) {
    const std::optional<Degrees> expected = FormulaByName(row);
    if (!expected) continue;
    EXPECT_EQ(row.formula, ToText(*expected)) << row.scaleName;
    ++checked;
  }
  EXPECT_GE(checked, 35);
}

}  // namespace
}  // namespace tonalith::content_tests
