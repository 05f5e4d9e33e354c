// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The chords of a scale, degree by degree with Roman numerals, and the scales that fit over chords.
//
// A chord takes every other note of the scale. If that gives no chord with a name, as on most degrees of a pentatonic
// scale, it is the most common triad or seventh chord within the scale.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "theory/chord_symbol.h"
#include "theory/chord_types.h"
#include "theory/formula.h"
#include "theory/note_name.h"
#include "theory/note_style.h"
#include "theory/scale_finder.h"

namespace tonalith::theory {

struct ScaleChord {
  Degree degree;
  NoteName root;
  /// Null if the scale has no such chord on this degree.
  const ChordType* triad = nullptr;
  const ChordType* seventh = nullptr;

  /// Of the triad: upper case for a major third, lower case for a minor one, with a degree sign for a diminished and +
  /// for an augmented triad. The accidental compares the degree with the major scale: bVII. UTF-8.
  [[nodiscard]] std::string Numeral() const;
  /// "Dm" and "Dm7"; empty if there is no such chord.
  [[nodiscard]] std::string TriadSymbol(NoteStyle style = {}) const;
  [[nodiscard]] std::string SeventhSymbol(NoteStyle style = {}) const;
};

/// One row for each degree of the scale, in its order.
[[nodiscard]] std::vector<ScaleChord> ChordsOfScale(NoteName tonic, const Formula& formula);

/// The scales that contain the notes of all chords, with their basses, as ScaleIndex::Containing orders them; the root
/// of the first chord precedes. Empty for no chords.
[[nodiscard]] std::vector<ScaleGroup> ScalesOver(const ScaleIndex& index, std::span<const ChordSymbol> chords,
                                                 std::size_t limit = ScaleIndex::kMostMatches);

}  // namespace tonalith::theory
