// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/random_text.h"

#include <vector>

namespace tonalith::stress {
namespace {

using Texts = std::vector<std::string>;

const Texts& Scraps() {
  static const Texts scraps = {"a",    "Z",    "0",  "9",  " ",  "'",      "\"",     ";",      "%",      "*",  "?",
                               "#",    "[",    "]",  "!",  "-",  "<b>",    "&",      "\\",     "ä",      "ß",  "Ω",
                               "ς",    "я",    "日", "本", "😀",  "\u0301", "\u200f", "\u202e", "\ufeff", "é",  "İ",
                               "null", "DROP", "--", "C#", "Bb", "\u00a0", "１",     "٣",      "𝄞",      "%n", "{}"};
  return scraps;
}

const Texts& Words() {
  static const Texts words = {"Major", "Minor", "Melodic", "Blues", "Dorian", "Raga", "Bebop", "Chord", "7", "sus4"};
  return words;
}

}  // namespace

std::string AnyText(RandomSource& dice, int longest) {
  std::string text;
  for (int left = dice.Below(longest + 1); left > 0; --left) text += dice.Pick(Scraps());
  return text;
}

std::string AnyName(RandomSource& dice) {
  if (dice.OneIn(8)) return AnyText(dice, 12);
  if (dice.OneIn(10)) return dice.Pick(Words());
  return dice.Pick(Words()) + " " + std::to_string(dice.Below(100000));
}

std::string AnyPattern(RandomSource& dice) {
  if (dice.OneIn(10)) return AnyText(dice, 6);
  std::string pattern;
  const bool isLoose = dice.OneIn(5);
  for (int left = isLoose ? dice.Below(60) : 12; left > 0;) {
    const int step = dice.Between(isLoose ? 0 : 1, isLoose ? 9 : 3);
    if (step > left) break;
    pattern += std::to_string(step);
    left -= step > 0 ? step : 1;
  }
  return pattern;
}

std::string AnyNumber(RandomSource& dice) {
  static const Texts odd = {"",    "-1", "0",  "007", " 5", "5 ",  "1.5", "1e3", "99999999999999999999",
                            "abc", "+2", "-0", "٣",   "１", "0x10"};
  return dice.OneIn(4) ? dice.Pick(odd) : std::to_string(dice.Between(1, 12));
}

std::string AnyKey(RandomSource& dice) {
  static const Texts notes = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
  static const Texts others = {"c", "Db", "5", "11", "12", "-1", " 3 ", "99999", "H", "C ", "", "+4", "-0"};
  if (dice.OneIn(6)) return AnyText(dice, 4);
  return dice.Pick(dice.OneIn(4) ? others : notes);
}

std::string AnySearch(RandomSource& dice) {
  static const Texts pieces = {"*", "?", "#", "[a-z]", "[!a-m]", "[", "]", "[z-a]", "[]", "[!]", "m", "or", "*blues*"};
  if (dice.OneIn(3)) return dice.Pick(Words());
  if (dice.OneIn(8)) return AnyText(dice, 10);
  std::string text;
  for (int left = dice.Between(1, 5); left > 0; --left) text += dice.Pick(pieces);
  return text;
}

}  // namespace tonalith::stress
