// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The column Aliases of all tables: other names and symbols. A symbol, a name in words ("Dominant seventh flat nine")
// and an altered mode ("Dorian b2") mean the notes of their row.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "content/degrees.h"
#include "content/scale_library.h"
#include "core/field_limits.h"
#include "core/text.h"
#include "core/upper_case.h"
#include "data/formula_tables.h"
#include "theory/chord_symbol.h"

namespace tonalith::content_tests {
namespace {

/// Longer names do not fit into a line of an answer.
constexpr std::size_t kLongestAlias = 60;

const ScaleLibrary& Library() { return ScaleLibrary::WithPacks(); }

/// Whether the text is a chord symbol without its root, such as "m7b5".
bool LooksLikeSymbol(const std::string& alias) {
  static const std::regex form("([0-9()#b+/,-]|°|ø|Δ|maj|min|dim|aug|sus|add|alt|omit|no|dom|mi|ma|m|M|j|o)+");
  return std::regex_match(alias, form);
}

TEST(Aliases, AreKnownForNearlyEveryRow) {
  std::set<std::string> names;
  for (const ScaleRow& row : Library().Rows()) {
    names.insert(row.scaleName);
    names.insert(row.aliases.begin(), row.aliases.end());
    // A symmetric scale without a common name.
    EXPECT_TRUE(!row.aliases.empty() || row.scaleName.starts_with("Symmetric ")) << row.scaleName;
  }
  EXPECT_GE(names.size(), 3300U);
}

TEST(Aliases, FitTheDatabase) {
  static_assert(kLongestAlias <= core::kLongestName);
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_LE(row.aliases.size(), static_cast<std::size_t>(data::kMostAliases)) << row.scaleName;
    for (const std::string& alias : row.aliases) EXPECT_LE(core::CharacterCount(alias), kLongestAlias) << alias;
  }
}

// Letters with accents are one character each, so that a search finds them.
TEST(Aliases, ConsistOfPrintableCharacters) {
  static const std::set<std::string_view> kOthers = {"à", "á", "â", "ã", "è", "é", "î", "ñ", "ó",
                                                     "ø", "û", "ü", "ā", "Č", "Đ", "ğ", "ī", "ı",
                                                     "ō", "Ş", "ş", "Š", "ū", "ǎ", "ệ", "°", "Δ"};
  for (const ScaleRow& row : Library().Rows()) {
    for (const std::string& alias : row.aliases) {
      EXPECT_EQ(alias.find("  "), std::string::npos) << alias;
      for (const std::string_view character : core::Characters(alias)) {
        const bool isAscii = character.size() == 1 && character[0] >= ' ' && character[0] <= '~';
        EXPECT_TRUE(isAscii || kOthers.contains(character)) << alias << ": " << character;
      }
    }
  }
}

/// In capital letters, with the Turkish i without dot different from the other i.
std::u32string Folded(const std::string& text) {
  static const std::regex dotless("ı");
  return core::UpperCase(std::regex_replace(text, dotless, "i."));
}

TEST(Aliases, AreNotTheNameOfTheirRow) {
  for (const ScaleRow& row : Library().Rows()) {
    std::set<std::u32string> names = {Folded(row.scaleName), Folded(PlainName(row))};
    for (const std::string& alias : row.aliases) {
      EXPECT_TRUE(names.insert(Folded(alias)).second) << row.scaleName << ": " << alias;
    }
  }
}

/// By name, plain name or alias: the pattern of the row, and the text as it is written.
using Owners = std::multimap<std::u32string, std::pair<std::string, std::string>>;

Owners OwnersOfNames() {
  Owners owners;
  for (const ScaleRow& row : Library().Rows()) {
    for (const std::string& name : {row.scaleName, PlainName(row)}) {
      owners.emplace(core::UpperCase(name), std::pair(row.scaleIntervals, name));
    }
  }
  return owners;
}

TEST(Aliases, EqualANameOnlyOfTheSameNotes) {
  const Owners owners = OwnersOfNames();
  for (const ScaleRow& row : Library().Rows()) {
    for (const std::string& alias : row.aliases) {
      const auto [first, last] = owners.equal_range(core::UpperCase(alias));
      for (auto owner = first; owner != last; ++owner) EXPECT_EQ(owner->second.first, row.scaleIntervals) << alias;
    }
  }
}

// In symbols the case has a meaning: M7 and m7.
TEST(Aliases, EqualEachOtherOnlyForTheSameNotes) {
  Owners owners;
  for (const ScaleRow& row : Library().Rows()) {
    for (const std::string& alias : row.aliases) {
      const std::u32string key = core::UpperCase(alias);
      const auto [first, last] = owners.equal_range(key);
      for (auto owner = first; owner != last; ++owner) {
        const auto& [pattern, text] = owner->second;
        const bool areSymbols = text != alias && LooksLikeSymbol(text) && LooksLikeSymbol(alias) && row.isChord;
        EXPECT_TRUE(areSymbols || pattern == row.scaleIntervals) << row.scaleName << ": " << alias;
      }
      owners.emplace(key, std::pair(row.scaleIntervals, alias));
    }
  }
}

/// The pattern of a chord symbol without its root.
std::optional<std::string> PatternOfSymbol(const std::string& symbol) {
  const auto formula = theory::ParseChordSuffix(symbol);
  return formula ? formula->Set().Pattern() : std::nullopt;
}

/// "(014)" or "014 trichord": the notes as digits.
bool NamesASet(const std::string& alias) {
  static const std::regex form("\\(?[0-9]{3,}\\)?(?: [a-z]+chord)?");
  return std::regex_match(alias, form);
}

constexpr std::int64_t kPowerChordAndDyads = 27;

TEST(Aliases, AsSymbolsHaveTheNotesOfTheirRow) {
  int checked = 0;
  for (const ScaleRow& row : Library().Chords()) {
    for (const std::string& alias : row.aliases) {
      // The name of an interval, such as m3, is no chord symbol.
      if (!LooksLikeSymbol(alias) || NamesASet(alias) || row.scaleTypeId == kPowerChordAndDyads) continue;
      EXPECT_EQ(PatternOfSymbol(alias), row.scaleIntervals) << row.scaleName << ": " << alias;
      ++checked;
    }
  }
  EXPECT_GE(checked, 640);
}

TEST(Aliases, AsSetsHaveTheNotesOfTheirRow) {
  int checked = 0;
  for (const ScaleRow& row : Library().Rows()) {
    for (const std::string& alias : row.aliases) {
      if (!NamesASet(alias)) continue;
      std::string notes;
      for (const int note : Offsets(row.scaleIntervals)) notes += std::to_string(note);
      std::string digits = alias.substr(0, alias.find(' '));
      std::erase_if(digits, [](char c) { return c == '(' || c == ')'; });
      EXPECT_EQ(digits, notes) << row.scaleName;
      ++checked;
    }
  }
  EXPECT_GE(checked, 30);
}

using Replacements = std::vector<std::pair<std::regex, std::string>>;

std::string Replaced(std::string text, const Replacements& replacements) {
  for (const auto& [pattern, replacement] : replacements) text = std::regex_replace(text, pattern, replacement);
  return text;
}

/// "Dominant seventh flat nine" as "7b9"; nothing for a name that is not made of such words.
std::optional<std::string> SymbolOfWords(const std::string& name) {
  static const std::map<std::string, std::string> kWords = {
      {"second", "2"},      {"third", "3"},        {"fourth", "4"},      {"fifth", "5"},
      {"sixth", "6"},       {"seventh", "7"},      {"ninth", "9"},       {"eleventh", "11"},
      {"thirteenth", "13"}, {"two", "2"},          {"four", "4"},        {"five", "5"},
      {"nine", "9"},        {"eleven", "11"},      {"thirteen", "13"},   {"minor", "m"},
      {"dominant", ""},     {"diminished", "dim"}, {"augmented", "aug"}, {"flat", "b"},
      {"sharp", "#"},       {"suspended", "sus"},  {"added", "add"},     {"altered", "alt"},
      {"no", "no"},         {"major", "maj"},      {"minormajor", "mM"}, {"diminishedmajor", "dimM"}};
  std::string lowered = Lowered(name);
  static const Replacements rules = {{std::regex("-"), " "},
                                     {std::regex("^minor major"), "minormajor"},
                                     {std::regex("^diminished major"), "diminishedmajor"},
                                     {std::regex("([0-9])th\\b"), "$1"}};
  lowered = Replaced(lowered, rules);
  std::istringstream words(lowered);
  std::string symbol;
  for (std::string word; words >> word;) {
    const bool isNumber = word.find_first_not_of("0123456789") == std::string::npos;
    if (!isNumber && !kWords.contains(word)) return std::nullopt;
    symbol += isNumber ? word : kWords.at(word);
  }
  if (symbol.find_first_of("0123456789") == std::string::npos) return std::nullopt;
  static const Replacements addedMajor = {{std::regex("addmaj"), "addM"}};
  return Replaced(symbol, addedMajor);
}

TEST(Aliases, InWordsHaveTheNotesOfTheirChord) {
  int checked = 0;
  for (const ScaleRow& row : Library().Chords()) {
    for (const std::string& alias : row.aliases) {
      // Major third and minor seventh: the words do not follow the order of a symbol.
      if (alias == "Major-minor seventh" || row.scaleTypeId == kPowerChordAndDyads || NamesASet(alias)) continue;
      const std::optional<std::string> symbol = LooksLikeSymbol(alias) ? std::nullopt : SymbolOfWords(alias);
      if (!symbol) continue;
      EXPECT_EQ(PatternOfSymbol(*symbol), row.scaleIntervals) << row.scaleName << ": " << alias << " is " << *symbol;
      ++checked;
    }
  }
  EXPECT_GE(checked, 160);
}

/// Common second names of the parents.
const ScaleRow* FindParent(const std::string& name) {
  static const std::map<std::string, std::string> kParents = {{"Super-Locrian", "Altered"},
                                                              {"Superlocrian", "Altered"},
                                                              {"Super Locrian", "Altered"},
                                                              {"Ultralocrian", "Ultra-Locrian"},
                                                              {"Semi-Locrian", "Locrian natural 2"},
                                                              {"Semilocrian", "Locrian natural 2"},
                                                              {"Melodic minor", "Jazz minor"},
                                                              {"Altered diminished", "Ultra-Locrian"},
                                                              {"Lydian-Mixolydian", "Lydian dominant"}};
  const auto other = kParents.find(name);
  return Library().Find(other == kParents.end() ? name : other->second);
}

/// The degree of an alteration in the name of a mode. "Phrygian #6" and "Locrian #2" raise the degree of the parent.
SpelledDegree AlteredDegree(const std::vector<SpelledDegree>& parent, const std::string& sign, int number) {
  for (const SpelledDegree& degree : parent) {
    if (degree.number == number && sign == "#" && ToText(degree).starts_with('b')) {
      return ReadDegree(ToText(degree).substr(1));
    }
  }
  return ReadDegree((sign == "=" ? "" : sign) + std::to_string(number));
}

/// The semitones of "Dorian b2" or "Lydian sharp 2"; nothing for other names.
std::optional<std::vector<SpelledDegree>> AlteredMode(const ScaleRow& row, const std::string& alias) {
  static const Replacements signs = {{std::regex("\\b(?:natural|nat) ([0-9])"), "=$1"},
                                     {std::regex("\\bdouble flat ([0-9])"), "bb$1"},
                                     {std::regex("\\bflat ([0-9])"), "b$1"},
                                     {std::regex("\\bsharp ([0-9])"), "#$1"}};
  const std::string spelled = Replaced(alias, signs);
  std::smatch parts;
  static const std::regex form("(.+?)((?: (?:bb|b|#|=)[0-9]+)+)");
  if (!std::regex_match(spelled, parts, form)) return std::nullopt;
  const ScaleRow* const parent = FindParent(parts[1]);
  if (parent == nullptr || parent->isChord) return std::nullopt;
  const std::vector<SpelledDegree> before = ReadFormula(parent->formula);
  if (before.size() != ReadFormula(row.formula).size() || before.size() != 7) return std::nullopt;
  std::vector<SpelledDegree> degrees = before;
  const std::string changes = parts[2];
  static const std::regex change("(bb|b|#|=)([0-9]+)");
  for (std::sregex_iterator found(changes.begin(), changes.end(), change); found != std::sregex_iterator(); ++found) {
    const int number = (std::stoi((*found)[2]) - 1) % 7 + 1;
    Alter(degrees, AlteredDegree(before, (*found)[1], number));
  }
  return Sorted(degrees);
}

TEST(Aliases, AsAlteredModesHaveTheNotesOfTheirScale) {
  int checked = 0;
  for (const ScaleRow& row : Library().Scales()) {
    for (const std::string& alias : row.aliases) {
      const auto degrees = AlteredMode(row, alias);
      if (!degrees) continue;
      EXPECT_EQ(FromDegrees(ToText(*degrees)), FromPattern(row.scaleIntervals)) << row.scaleName << ": " << alias;
      ++checked;
    }
  }
  EXPECT_GE(checked, 180);
}

}  // namespace
}  // namespace tonalith::content_tests
