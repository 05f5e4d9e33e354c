// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Descriptions contain claims that can be calculated: "same notes as Phrygian dominant", "has the notes of the minor 7
// chord a minor third lower". The tests parse every such claim and compare it with the patterns.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "content/mentions.h"
#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

/// Another row of the tables, and the number of semitones from the root of the naming row up to its root.
struct Claim {
  const ScaleRow* row = nullptr;
  int shift = 0;
};

int Semitones(const std::string& interval) {
  const std::map<std::string, int> intervals = {{"a semitone", 1},    {"a whole step", 2},    {"a minor third", 3},
                                                {"a major third", 4}, {"three semitones", 3}, {"a fourth", 5},
                                                {"a fifth", 7}};
  return intervals.at(interval);
}

std::string Without(const std::string& text, const std::string& pattern) {
  return std::regex_replace(text, std::regex(pattern), "");
}

/// Reads "the minor 7 chord a minor third lower".
Claim ReadClaim(std::string text) {
  Claim claim;
  std::smatch shift;
  if (std::regex_match(text, shift, std::regex("(.*) ((?:a|three) [a-z ]+) (higher|lower)"))) {
    claim.shift = Semitones(shift[2]) * (shift[3] == "higher" ? 1 : -1);
    text = std::string(shift[1]);
  }
  text = Without(text, "^(?:the |an |a )?(?:Japanese )?");
  const std::map<std::string, std::string> shortNames = {{"melodic minor", "Melodic minor (ascending)"},
                                                         {"half-diminished", "Minor 7 flat 5"},
                                                         {"half-whole diminished", "Diminished half-whole"}};
  for (const std::string& name : {text, Without(text, " (?:chord|scale|mode)$")}) {
    const auto alias = shortNames.find(name);
    claim.row = ScaleLibrary::WithPacks().Find(alias == shortNames.end() ? name : alias->second);
    if (claim.row != nullptr) {
      break;
    }
  }
  return claim;
}

/// Removes a list of row names from the beginning of `rest` and returns the rows. "the approximation of" precedes the
/// name of a row whose exact notes are between the frets.
std::vector<const ScaleRow*> TakeComparisons(std::string_view& rest, const std::string& claim) {
  const auto isApproximation = [](const ScaleRow* row) { return row->scaleName.ends_with(" (approximation)"); };
  std::vector<const ScaleRow*> list = TakeNameList(rest);
  for (const ScaleRow* row : list) EXPECT_FALSE(isApproximation(row)) << row->scaleName << ": " << claim;
  std::match_results<std::string_view::const_iterator> words;
  if (!std::regex_search(rest.begin(), rest.end(), words,
                         std::regex("^(?:, and (?:as|of) )?the approximations? of "))) {
    return list;
  }
  rest.remove_prefix(static_cast<std::size_t>(words.length()));
  for (const ScaleRow* row : TakeNameList(rest)) {
    EXPECT_TRUE(isApproximation(row)) << row->scaleName << ": " << claim;
    list.push_back(row);
  }
  return list;
}

void ExpectSameNotes(const ScaleRow& row, const Claim& claim, const std::string& words) {
  ASSERT_NE(claim.row, nullptr) << row.scaleName << " speaks of an unknown scale: " << words;
  EXPECT_EQ(ToText(Transposed(FromPattern(claim.row->scaleIntervals), claim.shift)),
            ToText(FromPattern(row.scaleIntervals)))
      << row.scaleName << ": " << words;
  EXPECT_NE(claim.row->scaleName, row.scaleName) << row.scaleName << " is compared with itself";
}

TEST(Descriptions, ClaimTheSameNotesOnlyOfScalesThatHaveThem) {
  const std::regex claims(
      "([Ss]ame notes as|Also the notes of|notes are those of|has the notes of|with the notes of|shares its notes with)"
      " ([^.;:]+)");
  int checked = 0;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) {
    for (std::sregex_iterator it(row.scaleDescription.begin(), row.scaleDescription.end(), claims), end; it != end;
         ++it) {
      const std::string words = (*it)[2];
      std::string_view rest = words;
      const std::vector<const ScaleRow*> list = TakeComparisons(rest, row.scaleName + ": " + it->str());
      for (const ScaleRow* other : list) ExpectSameNotes(row, {other, 0}, it->str());
      if (list.empty()) {
        ExpectSameNotes(row, ReadClaim(words.substr(0, words.find(','))), it->str());
      } else if ((*it)[1] == "Same notes as" || (*it)[1] == "Also the notes of") {
        EXPECT_EQ(rest, "") << row.scaleName << ": " << it->str();
      }
      checked += static_cast<int>(std::max<std::size_t>(list.size(), 1));
    }
  }
  EXPECT_GE(checked, 500);
}

TEST(Descriptions, NameAlteredDegreesThatTheScaleHas) {
  const std::regex opening("^(?:[A-Z][A-Za-z]* )*(?:with|: ) ((?:bb|b|#)[2-7])\\b");
  const std::regex withDegrees(
      "\\b(?:[Mm]inor|[Mm]ajor|Dorian|Lydian|Mixolydian|Phrygian|Locrian|pentatonic|third) "
      "with (?:an? )?((?:bb|b|#)[0-9]+)");
  int checked = 0;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) {
    for (const std::regex& form : {opening, withDegrees}) {
      std::smatch degree;
      if (std::regex_search(row.scaleDescription, degree, form)) {
        const auto note = static_cast<std::size_t>(DegreeToPitchClass(degree[1].str()));
        EXPECT_TRUE(FromPattern(row.scaleIntervals)[note]) << row.scaleName << ": " << degree.str();
        ++checked;
      }
    }
  }
  EXPECT_GE(checked, 10);
}

TEST(Descriptions, StateTheCorrectModeNumber) {
  const std::map<std::string, std::string> parents = {{"the major scale", "Major"},
                                                      {"the major pentatonic", "Major pentatonic"},
                                                      {"melodic minor", "Jazz minor"},
                                                      {"harmonic minor", "Harmonic minor"},
                                                      {"harmonic major", "Harmonic major"},
                                                      {"double harmonic major", "Double harmonic major"},
                                                      {"Neapolitan minor", "Neapolitan minor"},
                                                      {"Neapolitan major", "Neapolitan major"},
                                                      {"Hungarian major", "Hungarian major"},
                                                      {"Romanian major", "Romanian major"}};
  const std::map<std::string, std::size_t> ordinals = {{"first", 0}, {"second", 1}, {"third", 2},  {"fourth", 3},
                                                       {"fifth", 4}, {"sixth", 5},  {"seventh", 6}};
  const std::regex claim("^The ([a-z]+) mode of ([A-Za-z ]+?)(?=[,:.;]| and |$)");
  int checked = 0;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Scales()) {
    std::smatch mode;
    if (!std::regex_search(row.scaleDescription, mode, claim) || mode[2] == "limited transposition") {
      continue;
    }
    const std::string& parent = ScaleLibrary::WithPacks().Pattern(parents.at(mode[2]));
    const std::size_t degree = ordinals.at(mode[1]);
    EXPECT_EQ(row.scaleIntervals, parent.substr(degree) + parent.substr(0, degree))
        << row.scaleName << ": " << mode.str();
    ++checked;
  }
  EXPECT_GE(checked, 56);
}

}  // namespace
}  // namespace tonalith::content_tests
