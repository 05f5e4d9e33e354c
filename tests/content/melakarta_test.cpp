// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The 72 melakartas follow from a rule, and their names were chosen so that the first two syllables give the number in
// the katapayadi notation of Sanskrit. The test calculates both from the number alone.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

struct NotePair {
  std::string_view swaras;
  int lower;
  int upper;
};

constexpr std::array<NotePair, 6> kRishabhaGandhara = {
    {{"R1 G1", 1, 2}, {"R1 G2", 1, 3}, {"R1 G3", 1, 4}, {"R2 G2", 2, 3}, {"R2 G3", 2, 4}, {"R3 G3", 3, 4}}};
constexpr std::array<NotePair, 6> kDhaivataNishada = {
    {{"D1 N1", 8, 9}, {"D1 N2", 8, 10}, {"D1 N3", 8, 11}, {"D2 N2", 9, 10}, {"D2 N3", 9, 11}, {"D3 N3", 10, 11}}};
constexpr std::array<std::string_view, 12> kChakras = {"Indu",  "Netra", "Agni",   "Veda", "Bana",  "Rutu",
                                                       "Rishi", "Vasu",  "Brahma", "Disi", "Rudra", "Aditya"};

struct Consonant {
  std::string_view spelling;
  std::set<int> digits;
};

/// The digits of the consonants in Latin spelling. If one spelling represents several Sanskrit letters (t for a
/// dental, a retroflex and its aspirate, s for three sibilants), each of their digits is possible. Longer spellings
/// come first.
const std::vector<Consonant>& Consonants() {
  static const std::vector<Consonant> kConsonants = {
      {"kh", {2}},      {"gh", {4}},   {"ch", {6, 7}}, {"jh", {9}}, {"th", {2, 7}},   {"dh", {4, 9}},
      {"ph", {2}},      {"bh", {4}},   {"sh", {5, 6}}, {"k", {1}},  {"g", {3}},       {"j", {8}},
      {"t", {1, 2, 6}}, {"d", {3, 8}}, {"n", {0, 5}},  {"p", {1}},  {"b", {3}},       {"m", {5}},
      {"y", {1}},       {"r", {2}},    {"l", {3}},     {"v", {4}},  {"s", {5, 6, 7}}, {"h", {8}}};
  return kConsonants;
}

bool IsVowel(char c) { return std::string_view("aeiou").find(c) != std::string_view::npos; }

/// Removes the next syllable from `rest` and returns the possible digits of its consonants.
std::set<int> NextSyllable(std::string_view& rest) {
  std::set<int> digits;
  while (!rest.empty() && !IsVowel(rest.front())) {
    const auto& all = Consonants();
    const auto found =
        std::find_if(all.begin(), all.end(), [rest](const Consonant& c) { return rest.starts_with(c.spelling); });
    if (found == all.end()) {
      return {};
    }
    digits.insert(found->digits.begin(), found->digits.end());
    rest.remove_prefix(found->spelling.size());
  }
  while (!rest.empty() && IsVowel(rest.front())) {
    rest.remove_prefix(1);
  }
  return digits;
}

const ScaleLibrary& Pack() {
  static const ScaleLibrary pack("packs/melakarta");
  return pack;
}

std::vector<ScaleRow> Melakartas() { return Pack().OfType("Melakarta ragas"); }

PitchClassSet ByRule(int number) {
  const auto index = static_cast<std::size_t>(number - 1);
  const NotePair& low = kRishabhaGandhara[index / 6 % 6];
  const NotePair& high = kDhaivataNishada[index % 6];
  PitchClassSet notes;
  for (const int note : {0, low.lower, low.upper, number <= 36 ? 5 : 6, 7, high.lower, high.upper}) {
    notes.set(static_cast<std::size_t>(note));
  }
  return notes;
}

TEST(Melakartas, Are72InTheOrderOfTheRule) {
  const std::vector<ScaleRow> rows = Melakartas();
  ASSERT_EQ(rows.size(), 72U);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(ToText(FromPattern(rows[i].scaleIntervals)), ToText(ByRule(static_cast<int>(i) + 1)))
        << rows[i].scaleName;
  }
}

TEST(Melakartas, HaveNamesThatEncodeTheirNumber) {
  int number = 1;
  for (const ScaleRow& row : Melakartas()) {
    const std::string lowered = Lowered(row.scaleName);
    std::string_view rest = lowered;
    const std::set<int> ones = NextSyllable(rest);
    const std::set<int> tens = NextSyllable(rest);
    EXPECT_TRUE(ones.contains(number % 10) && tens.contains(number / 10)) << row.scaleName << " is not " << number;
    ++number;
  }
}

TEST(Melakartas, AreDescribedWithTheirNumberChakraAndSwaras) {
  int number = 1;
  for (const ScaleRow& row : Melakartas()) {
    const auto index = static_cast<std::size_t>(number - 1);
    std::string expected = "Melakarta " + std::to_string(number) + ", " + std::string(kChakras[index / 6]) +
                           " chakra: S " + std::string(kRishabhaGandhara[index / 6 % 6].swaras);
    expected +=
        std::string(number <= 36 ? " M1 P " : " M2 P ") + std::string(kDhaivataNishada[index % 6].swaras) + ". ";
    EXPECT_TRUE(row.scaleDescription.starts_with(expected)) << row.scaleName << ": " << row.scaleDescription;
    ++number;
  }
}

TEST(Melakartas, NameThePartnerThatDiffersOnlyInTheFourth) {
  int partners = 0;
  for (const ScaleRow& row : Melakartas()) {
    const std::string_view text = row.scaleDescription;
    const auto at = text.find("Its partner with M");
    if (at == std::string_view::npos) {
      continue;
    }
    const std::string_view name = text.substr(at + 23, text.find('.', at) - at - 23);
    PitchClassSet notes = FromPattern(row.scaleIntervals);
    notes.flip(5).flip(6);
    EXPECT_EQ(notes, Pack().Notes(name)) << row.scaleName << " and " << name;
    EXPECT_EQ(text[at + 18], notes[5] ? '1' : '2') << row.scaleName;
    ++partners;
  }
  EXPECT_GT(partners, 20);
}

}  // namespace
}  // namespace tonalith::content_tests
