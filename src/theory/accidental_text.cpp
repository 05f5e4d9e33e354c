// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/accidental_text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace tonalith::theory {
namespace {

constexpr std::array<std::pair<std::string_view, int>, 8> kSigns = {{{"#", 1},
                                                                     {"b", -1},
                                                                     {"x", 2},
                                                                     {"\u266F", 1},
                                                                     {"\u266D", -1},
                                                                     {"\u266E", 0},
                                                                     {"\U0001D12A", 2},
                                                                     {"\U0001D12B", -2}}};

char Lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool Take(std::string_view& text, std::string_view word) {
  if (!text.starts_with(word)) return false;
  text.remove_prefix(word.size());
  return true;
}

bool TakeIgnoringCase(std::string_view& text, std::string_view word) {
  if (text.size() < word.size() ||
      !std::equal(word.begin(), word.end(), text.begin(), [](char a, char b) { return a == Lowered(b); })) {
    return false;
  }
  text.remove_prefix(word.size());
  return true;
}

std::optional<int> TakeAccidentalSign(std::string_view& text) {
  for (const auto& [sign, semitones] : kSigns) {
    if (Take(text, sign)) return semitones;
  }
  return std::nullopt;
}

std::string AsciiAccidentals(int alteration) {
  return std::string(static_cast<std::size_t>(std::abs(alteration)), alteration < 0 ? 'b' : '#');
}

}  // namespace tonalith::theory
