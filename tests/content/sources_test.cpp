// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Every row states the source of its form: a work with its year, the number of a set class, or a rule. Rules about
// other rows are calculated here; rules about the name of the row are checked in the tests of that kind of name.

#include <gtest/gtest.h>

#include <optional>
#include <regex>
#include <set>
#include <string>

#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

const ScaleLibrary& Library() { return ScaleLibrary::WithPacks(); }

/// The rule after "by construction: ", without the Forte number.
std::optional<std::string> RuleOf(const ScaleRow& row) {
  std::smatch parts;
  if (!std::regex_match(row.source, parts, std::regex("by construction: (.+?)(?:; Forte .+)?"))) return std::nullopt;
  return parts[1].str();
}

/// "2, 4 and b6" as "2 4 b6".
std::string DegreeList(const std::string& text) { return std::regex_replace(text, std::regex(", | and "), " "); }

/// "Major without 2 and 6, with b2 and b6": removed notes must exist before, added notes must not.
PitchClassSet Altered(const std::smatch& parts) {
  PitchClassSet notes = Library().Notes(parts[1].str());
  const PitchClassSet away = parts[2].matched ? FromDegrees(DegreeList(parts[2])) : PitchClassSet();
  EXPECT_EQ(notes & away, away) << parts[0];
  notes &= ~away;
  const PitchClassSet added = parts[3].matched ? FromDegrees(DegreeList(parts[3])) : PitchClassSet();
  EXPECT_TRUE((notes & added).none()) << parts[0];
  return notes | added;
}

/// The pattern of the rule. A set of notes is sufficient, because every row starts on its root.
std::string PatternByRule(const std::string& rule) {
  std::smatch parts;
  if (std::regex_match(rule, parts, std::regex("the notes of (.+)"))) return Library().Pattern(parts[1].str());
  if (std::regex_match(rule, parts, std::regex("(.+) from note ([2-9])"))) {
    const std::string& parent = Library().Pattern(parts[1].str());
    const std::size_t first = std::stoul(parts[2]) - 1;
    return parent.substr(first) + parent.substr(0, first);
  }
  PitchClassSet notes;
  if (std::regex_match(rule, parts, std::regex("(.+) joined with (.+)"))) {
    notes = Library().Notes(parts[1].str()) | Library().Notes(parts[2].str());
  } else if (std::regex_match(rule, parts,
                              std::regex("(.+?)(?: without ([b#0-9, and]+?))?(?:,? with ([b#0-9, and]+))?"))) {
    notes = Altered(parts);
  }
  std::string pattern;
  int last = 0;
  for (int note = 1; note <= 12; ++note) {
    if (note < 12 && !notes[static_cast<std::size_t>(note)]) continue;
    pattern += std::to_string(note - last);
    last = note;
  }
  return pattern;
}

TEST(Sources, NameAWorkASetClassOrARule) {
  const std::regex work("[A-Z][^,]*, .+ (?:1[5-9]|20)[0-9][0-9](?:; Forte .+)?");
  const std::regex setClass("Forte [0-9]+-Z?[0-9]+");
  const std::regex rotation("rotation of [a-z ]+; Forte .+");
  for (const ScaleRow& row : Library().Rows()) {
    const bool isNamed = RuleOf(row).has_value() || std::regex_match(row.source, work) ||
                         std::regex_match(row.source, setClass) || std::regex_match(row.source, rotation);
    EXPECT_TRUE(isNamed) << row.scaleName << ": " << row.source;
  }
}

TEST(Sources, RulesProduceTheirRows) {
  const std::set<std::string> byName = {"the notes that its name spells", "the triad and bass note of its name",
                                        "the two triads of its name", "the melakarta rule", "the interval of its name"};
  int checked = 0;
  for (const ScaleRow& row : Library().Rows()) {
    const std::optional<std::string> rule = RuleOf(row);
    if (!rule.has_value() || byName.contains(*rule)) continue;
    EXPECT_EQ(row.scaleIntervals, PatternByRule(*rule)) << row.scaleName << ": " << *rule;
    ++checked;
  }
  EXPECT_GE(checked, 110);
}

TEST(Sources, UseNameRulesOnlyForMatchingNames) {
  for (const ScaleRow& row : Library().Rows()) {
    const std::string rule = RuleOf(row).value_or("");
    if (rule == "the triad and bass note of its name") {
      EXPECT_TRUE(row.scaleName.starts_with("Slash chord ")) << row.scaleName;
    }
    if (rule == "the two triads of its name") {
      EXPECT_TRUE(row.scaleName.starts_with("Triad pair ")) << row.scaleName;
    }
    if (rule == "the interval of its name") {
      EXPECT_TRUE(row.scaleName.ends_with(" dyad")) << row.scaleName;
    }
    if (rule == "the notes that its name spells") {
      EXPECT_TRUE(row.isChord) << row.scaleName;
    }
  }
}

}  // namespace
}  // namespace tonalith::content_tests
