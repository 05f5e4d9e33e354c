// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Sets of pitch classes, the common representation in which the tests compare patterns, chord names, note names and
// rules. Throws std::invalid_argument for invalid text, so that an error in a test table fails the test.

#pragma once

#include <bitset>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::content_tests {

/// Bit n is set if pitch class n belongs to the set; 0 is the root.
using PitchClassSet = std::bitset<12>;

PitchClassSet Transposed(const PitchClassSet& set, int semitones);

/// The notes of an interval pattern from its root; the final octave is the root again.
PitchClassSet FromPattern(std::string_view pattern);

/// The semitones from the root to each note of a pattern, without the final octave.
std::vector<int> Offsets(std::string_view pattern);

/// The set of note names separated by blanks, each a letter and any number of # or b: "C Db E".
PitchClassSet FromNotes(std::string_view notes);

/// The set of scale degrees separated by blanks, each any number of # or b and a number: "1 b3 #4 bb7".
PitchClassSet FromDegrees(std::string_view degrees);

/// One degree as semitones from the root within the octave: "b3" is 3, "13" is 9.
int DegreeToPitchClass(std::string_view degree);

/// The number of different sets among the twelve transpositions: 12, or less for a symmetric set.
int TranspositionCount(const PitchClassSet& set);

/// The prime form as set theory writes it, T for ten and E for eleven: "0134689" for harmonic minor.
std::string PrimeForm(const PitchClassSet& set);

/// The set as numbers, for messages: "0 4 7".
std::string ToText(const PitchClassSet& set);

}  // namespace tonalith::content_tests
