// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/music.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace tonalith::stress {
namespace {

constexpr int kHighestSemitone = 35;
constexpr std::size_t kMostNeckNotes = 16;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool AreDigits(const std::string& text) { return std::all_of(text.begin(), text.end(), IsDigit); }

std::string WithoutBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<int> NumberIn(const std::string& text) {
  std::string digits = WithoutBlanks(text);
  if (!digits.empty() && digits[0] == '+') digits.erase(0, 1);
  std::int16_t number = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) return std::nullopt;
  return number;
}

/// Semitones above C; nullopt if the pattern exceeds three octaves or is not valid.
std::optional<std::vector<int>> Semitones(const std::string& pattern, int start) {
  std::vector<int> semitones{start};
  for (const char c : pattern) {
    if (!IsDigit(c)) return std::nullopt;
    semitones.push_back(semitones.back() + (c - '0'));
  }
  if (semitones.back() > kHighestSemitone) return std::nullopt;
  return semitones;
}

}  // namespace

Key KeyOf(const std::string& text) {
  Key key{0, text, 0};
  const std::optional<int> number = NumberIn(text);
  if (number && (*number < 0 || *number > 11)) key.name = "C";
  const auto at = [](const std::string& name) {
    const auto found = std::find(kNames.begin(), kNames.end(), name);
    return found == kNames.end() ? 0 : static_cast<int>(found - kNames.begin());
  };
  key.start = at(key.name);
  key.listIndex = at(text);
  return key;
}

std::string HighlightedNeck(const std::optional<std::string>& pattern, const Key& key) {
  constexpr std::array<int, 6> kOpenStrings = {4, 11, 7, 2, 9, 4};
  std::string neck(96, '.');
  auto semitones = pattern ? Semitones(*pattern, key.start) : std::nullopt;
  if (!semitones) return neck;
  if (semitones->size() > kMostNeckNotes) semitones->resize(kMostNeckNotes);
  for (std::size_t place = 0; place < neck.size(); ++place) {
    const int note = (kOpenStrings.at(place / 16) + static_cast<int>(place % 16)) % 12;
    const bool isHighlighted =
        std::any_of(semitones->begin(), semitones->end(), [&](int semitone) { return semitone % 12 == note; });
    if (isHighlighted) neck[place] = kNames.at(static_cast<std::size_t>(note)) == key.name ? 'K' : 'o';
  }
  return neck;
}

std::string Steps(const std::string& pattern) {
  std::string words;
  for (const char c : pattern) {
    if (!IsDigit(c)) continue;
    const int semitones = c - '0';
    words += "  ";
    if (semitones == 1) {
      words += "S";
    } else if (semitones == 2) {
      words += "T";
    } else {
      words += "T" + std::to_string(semitones / 2) + (semitones % 2 == 1 ? ".5" : "");
    }
  }
  return words;
}

std::optional<std::vector<std::string>> StaffNames(const std::optional<std::string>& pattern, const Key& key) {
  const std::string steps = WithoutBlanks(pattern.value_or(""));
  if (steps.empty() || !AreDigits(steps)) return std::nullopt;
  std::vector<std::string> names;
  int note = key.listIndex;
  for (const char c : steps) {
    names.emplace_back(kNames.at(static_cast<std::size_t>(note % 12)));
    note += c - '0';
  }
  return names;
}

std::string PatternOfNotes(unsigned notes) {
  std::string pattern;
  int previous = -1;
  for (int note = 0; note <= 12; ++note) {
    const bool isChosen = note == 12 || (notes >> static_cast<unsigned>(note) & 1U) != 0;
    if (!isChosen) continue;
    if (previous >= 0) pattern += std::to_string(note - previous);
    previous = note;
  }
  return pattern;
}

unsigned NotesOfPattern(const std::string& pattern) {
  unsigned notes = 0;
  const auto semitones = Semitones(pattern, 0);
  if (!semitones) return notes;
  for (const int semitone : *semitones) notes |= 1U << static_cast<unsigned>(semitone % 12);
  return notes;
}

}  // namespace tonalith::stress
