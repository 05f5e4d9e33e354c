// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "content/pitch_class_set.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

namespace tonalith::content_tests {
namespace {

constexpr std::array<int, 7> kMajorScale = {0, 2, 4, 5, 7, 9, 11};

int Wrapped(int semitones) { return ((semitones % 12) + 12) % 12; }

int Accidentals(std::string_view signs) {
  int sum = 0;
  for (const char sign : signs) {
    if (sign != '#' && sign != 'b') {
      throw std::invalid_argument("no accidental: " + std::string(signs));
    }
    sum += sign == '#' ? 1 : -1;
  }
  return sum;
}

int NoteToPitchClass(std::string_view note) {
  constexpr std::string_view kLetters = "CDEFGAB";
  const auto letter = note.empty() ? std::string_view::npos : kLetters.find(note.front());
  if (letter == std::string_view::npos) {
    throw std::invalid_argument("no note: " + std::string(note));
  }
  return Wrapped(kMajorScale[letter] + Accidentals(note.substr(1)));
}

template <typename Convert>
PitchClassSet FromWords(std::string_view text, Convert convert) {
  PitchClassSet set;
  std::istringstream words{std::string(text)};
  for (std::string word; words >> word;) {
    set.set(static_cast<std::size_t>(convert(word)));
  }
  return set;
}

std::vector<int> Members(const PitchClassSet& set) {
  std::vector<int> members;
  for (int note = 0; note < 12; ++note) {
    if (set[static_cast<std::size_t>(note)]) {
      members.push_back(note);
    }
  }
  return members;
}

/// Compares from the last note back, so that the form packed most closely to its start is the smallest.
bool PackedCloser(const std::vector<int>& left, const std::vector<int>& right) {
  return std::lexicographical_compare(left.rbegin(), left.rend(), right.rbegin(), right.rend());
}

std::vector<int> MostCompact(const PitchClassSet& set) {
  std::vector<int> best;
  for (const int root : Members(set)) {
    const std::vector<int> form = Members(Transposed(set, -root));
    if (best.empty() || PackedCloser(form, best)) {
      best = form;
    }
  }
  return best;
}

}  // namespace

PitchClassSet Transposed(const PitchClassSet& set, int semitones) {
  PitchClassSet result;
  for (int note = 0; note < 12; ++note) {
    result[static_cast<std::size_t>(Wrapped(note + semitones))] = set[static_cast<std::size_t>(note)];
  }
  return result;
}

std::vector<int> Offsets(std::string_view pattern) {
  std::vector<int> offsets;
  int note = 0;
  for (const char digit : pattern) {
    if (digit < '1' || digit > '9') {
      throw std::invalid_argument("no interval pattern: " + std::string(pattern));
    }
    offsets.push_back(note);
    note += digit - '0';
  }
  return offsets;
}

PitchClassSet FromPattern(std::string_view pattern) {
  PitchClassSet set;
  for (const int offset : Offsets(pattern)) {
    set.set(static_cast<std::size_t>(Wrapped(offset)));
  }
  return set;
}

PitchClassSet FromNotes(std::string_view notes) { return FromWords(notes, NoteToPitchClass); }

PitchClassSet FromDegrees(std::string_view degrees) { return FromWords(degrees, DegreeToPitchClass); }

int DegreeToPitchClass(std::string_view degree) {
  const auto digits = std::min(degree.find_first_of("0123456789"), degree.size());
  const int number = std::stoi(std::string(degree.substr(digits)));
  if (number < 1 || number > 14) {
    throw std::invalid_argument("no degree: " + std::string(degree));
  }
  return Wrapped(kMajorScale[static_cast<std::size_t>((number - 1) % 7)] + Accidentals(degree.substr(0, digits)));
}

int TranspositionCount(const PitchClassSet& set) {
  int count = 1;
  while (Transposed(set, count) != set) {
    ++count;
  }
  return count;
}

std::string PrimeForm(const PitchClassSet& set) {
  PitchClassSet inverted;
  for (const int note : Members(set)) {
    inverted.set(static_cast<std::size_t>(Wrapped(-note)));
  }
  const std::vector<int> form = MostCompact(set);
  const std::vector<int> invertedForm = MostCompact(inverted);
  std::string text;
  for (const int note : PackedCloser(invertedForm, form) ? invertedForm : form) {
    text += "0123456789TE"[note];
  }
  return text;
}

std::string ToText(const PitchClassSet& set) {
  std::string text;
  for (const int note : Members(set)) {
    text += (text.empty() ? "" : " ") + std::to_string(note);
  }
  return text;
}

}  // namespace tonalith::content_tests
