// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/random_text.h"

#include <vector>

#include "stress/music.h"

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

std::string AnyText(RandomSource& random, int longest) {
  std::string text;
  for (int left = random.Below(longest + 1); left > 0; --left) text += random.Pick(Scraps());
  return text;
}

std::string AnyName(RandomSource& random) {
  if (random.OneIn(8)) return AnyText(random, 12);
  if (random.OneIn(10)) return random.Pick(Words());
  return random.Pick(Words()) + " " + std::to_string(random.Below(100000));
}

std::string AnyPattern(RandomSource& random) {
  if (random.OneIn(10)) return AnyText(random, 6);
  std::string pattern;
  const bool isLoose = random.OneIn(5);
  for (int left = isLoose ? random.Below(60) : 12; left > 0;) {
    const int step = random.Between(isLoose ? 0 : 1, isLoose ? 9 : 3);
    if (step > left) break;
    pattern += std::to_string(step);
    left -= step > 0 ? step : 1;
  }
  return pattern;
}

std::string AnyNumber(RandomSource& random) {
  static const Texts odd = {"",    "-1", "0",  "007", " 5", "5 ",  "1.5", "1e3", "99999999999999999999",
                            "abc", "+2", "-0", "٣",   "１", "0x10"};
  return random.OneIn(4) ? random.Pick(odd) : std::to_string(random.Between(1, 12));
}

std::string AnyKey(RandomSource& random) {
  static const Texts notes(kNames.begin(), kNames.end());
  static const Texts others = {"c", "Db", "5", "11", "12", "-1", " 3 ", "99999", "H", "C ", "", "+4", "-0"};
  if (random.OneIn(6)) return AnyText(random, 4);
  return random.Pick(random.OneIn(4) ? others : notes);
}

std::string AnySearch(RandomSource& random) {
  static const Texts pieces = {"*", "?", "#", "[a-z]", "[!a-m]", "[", "]", "[z-a]", "[]", "[!]", "m", "or", "*blues*"};
  if (random.OneIn(3)) return random.Pick(Words());
  if (random.OneIn(8)) return AnyText(random, 10);
  std::string text;
  for (int left = random.Between(1, 5); left > 0; --left) text += random.Pick(pieces);
  return text;
}

}  // namespace tonalith::stress
