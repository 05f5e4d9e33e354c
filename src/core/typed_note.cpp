// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/typed_note.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace tonalith::core {
namespace {

/// Longer than any spelling, blanks included.
constexpr std::size_t kLongestText = 40;

constexpr int kNotesInAnOctave = 12;

constexpr std::array<std::pair<std::string_view, int>, 11> kAccidentals = {{{"", 0},
                                                                            {"natural", 0},
                                                                            {"\u266E", 0},
                                                                            {"#", 1},
                                                                            {"\u266F", 1},
                                                                            {"sharp", 1},
                                                                            {"is", 1},
                                                                            {"b", -1},
                                                                            {"\u266D", -1},
                                                                            {"flat", -1},
                                                                            {"es", -1}}};

std::optional<int> NumberOfLetter(char letter) {
  constexpr std::string_view kLetters = "cdefgabh";
  constexpr std::array<int, 8> kNumbers = {0, 2, 4, 5, 7, 9, 11, 11};
  const std::size_t at = kLetters.find(letter);
  if (at == std::string_view::npos) return {};
  return kNumbers.at(at);
}

std::optional<int> StepOfAccidental(char letter, std::string_view accidental) {
  // German: E flat is Es and A flat is As.
  if (accidental == "s" && (letter == 'e' || letter == 'a')) return -1;
  const auto* const found = std::find_if(kAccidentals.begin(), kAccidentals.end(),
                                         [&](const auto& known) { return known.first == accidental; });
  if (found == kAccidentals.end()) return {};
  return found->second;
}

/// In lower case, without blanks and hyphens.
std::string Compact(std::string_view text) {
  std::string compact;
  for (const char c : text) {
    if (c == ' ' || c == '-') continue;
    compact += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return compact;
}

}  // namespace

std::optional<NoteNumber> NoteOfTypedText(std::string_view text) {
  if (text.size() > kLongestText) return {};
  const std::string typed = Compact(text);
  if (typed.empty()) return {};
  const std::optional<int> natural = NumberOfLetter(typed.front());
  const std::optional<int> step = StepOfAccidental(typed.front(), std::string_view(typed).substr(1));
  if (!natural || !step) return {};
  return static_cast<NoteNumber>((*natural + *step + kNotesInAnOctave) % kNotesInAnOctave);
}

}  // namespace tonalith::core
