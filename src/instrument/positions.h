// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Positions of a scale on any instrument: which notes belong to one place of the hand. Strings are taken in the order
// of their pitches, so the notes of a position ascend without gaps and without repetitions, also on an ukulele. Short
// strings (the fifth string of a banjo) are left out, and of strings in unison all but the last, except in
// SingleStrings. Frets count from the capo. Scales without notes have no positions.

#pragma once

#include <vector>

#include "instrument/instrument.h"
#include "theory/pitch.h"
#include "theory/pitch_class_set.h"

namespace tonalith::instrument {

struct Scale {
  theory::PitchClass root;
  /// Counted from C. The root need not be in it.
  theory::PitchClassSet notes;
};

struct Position {
  /// From 1. The same pattern an octave higher has the same number.
  int number = 1;
  /// The frets of each string in ascending order, in the order of the strings of the instrument.
  std::vector<std::vector<int>> frets;

  bool operator==(const Position&) const = default;
};

/// Box positions by number, then by place. The hand covers four frets. A note between two strings that it does not
/// reach is played by a stretch of one fret, upwards or downwards, all in the same direction; where strings are tuned
/// wider than a fourth, by as many frets as needed, up to kMostStretch. In the direction of a stretch the outer string
/// has its note, too.
///
/// The boxes are at the places that need fewer stretches than their neighbours: for the major scale in standard tuning,
/// the five CAGED boxes. Of neighbouring places that need equally many, one is chosen: the one with the most notes,
/// then the one with the most even number of notes per string, then the lowest. Each box also appears an octave higher
/// if it fits. Number 1 has the root on the string with the lowest pitch, closest to the index finger; if no such box
/// is among them, the easiest one that has is added. The others follow up the neck.
///
/// Further boxes are added where notes of the neck would otherwise be in no box, mostly at the nut: they have the
/// number of the box that would be there on a longer neck, or the next number.
///
/// Of a pitch that the hand reaches on two strings, a box has the one on the higher string.
[[nodiscard]] std::vector<Position> Boxes(const Instrument& instrument, const Scale& scale);

/// Enough for strings that are tuned a major sixth apart, as in open C6. Wider tunings have no boxes.
inline constexpr int kMostStretch = 5;

/// The same number of notes on each string: position n begins on the string with the lowest pitch with the nth note of
/// the scale from its root. Where a position never fits on the neck, it ends with the last string that fits. Empty if
/// `notesPerString` is not 1 to kMostNotesPerString.
[[nodiscard]] std::vector<Position> NotesPerString(const Instrument& instrument, const Scale& scale,
                                                   int notesPerString);

/// An octave of the chromatic scale; more would not fit on any string.
inline constexpr int kMostNotesPerString = 12;

/// All notes of one string. Position n is the nth string of the instrument; strings without notes are skipped.
[[nodiscard]] std::vector<Position> SingleStrings(const Instrument& instrument, const Scale& scale);

/// From each root on the neck up to the next root, both included, in the place of the hand that needs the fewest
/// stretches. Numbered from the string with the lowest pitch, and on each string from the nut. Empty if the root is not
/// in the scale.
[[nodiscard]] std::vector<Position> OneOctave(const Instrument& instrument, const Scale& scale);

/// The box at the nut, with open strings; one position or none.
[[nodiscard]] std::vector<Position> OpenPosition(const Instrument& instrument, const Scale& scale);

}  // namespace tonalith::instrument
