// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Computes the expected content of the main window from a pattern and a key, independently of the program's own
// procedures.

#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tonalith::stress {

inline constexpr std::array<const char*, 12> kNames = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

/// The meaning of a text in the key box: the start note of the scale, and the note name that is highlighted as the key.
struct Key {
  int start = 0;
  std::string name;
  /// The index in the list of notes; 0 for a text that is not in it.
  int listIndex = 0;
};
Key KeyOf(const std::string& text);

/// One character for each of the 96 positions of the neck: '.' hidden, 'o' a note of the scale, 'K' the key.
std::string HighlightedNeck(const std::optional<std::string>& pattern, const Key& key);

/// The step words after "Scale Steps: ".
std::string Steps(const std::string& pattern);

/// The names below the staff, one for each step; nullopt if the pattern is not valid.
std::optional<std::vector<std::string>> StaffNames(const std::optional<std::string>& pattern, const Key& key);

/// The pattern of the selected notes (bit i is note i above C), without separators.
std::string PatternOfNotes(unsigned notes);
/// The notes of a pattern that starts at C; 0 if the pattern is not valid.
unsigned NotesOfPattern(const std::string& pattern);

}  // namespace tonalith::stress
