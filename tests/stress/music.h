// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A second reckoning of what the main window has to show for a pattern and a key: done here by plain addition, not by
// the program's own procedures, so that the two can be held against each other. Pure functions.

#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tonalith::stress {

inline constexpr std::array<const char*, 12> kNames = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

/// What a text in the key box means: the note that the scale begins with, and the name that is marked as the key.
struct Key {
  int start = 0;
  std::string name;
  /// The place in the list of notes; 0 for what is not in it.
  int listIndex = 0;
};
Key KeyOf(const std::string& text);

/// For each of the 96 places of the neck: '.' dark, 'o' a note of the scale, 'K' the key.
std::string LitNeck(const std::optional<std::string>& pattern, const Key& key);

/// The words behind "Scale Steps: ".
std::string Steps(const std::string& pattern);

/// The names below the staff, one for each step; nothing where no scale can be written.
std::optional<std::vector<std::string>> StaffNames(const std::optional<std::string>& pattern, const Key& key);

/// The pattern of notes from C that are chosen (bit i is note i), without a separator.
std::string PatternOfNotes(unsigned notes);
/// The notes that a pattern reaches from C; none for one that cannot be built.
unsigned NotesOfPattern(const std::string& pattern);

}  // namespace tonalith::stress
