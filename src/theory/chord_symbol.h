// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Chord symbols as players write them: Am7, C/E, F#m7b5, Bbmaj7#11. Reads the common variants of each sign (m, min and
// -; maj, M and a triangle; dim and a circle) and writes one form.
//
// A number from 7 up stacks thirds. A thirteenth omits the eleventh unless the third is minor. A suspended note
// replaces the third, an altered degree the natural one; an added degree replaces nothing. Degrees are in thirds, with
// added second and fourth as 9 and 11.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "theory/formula.h"
#include "theory/note_parser.h"
#include "theory/note_style.h"

namespace tonalith::theory {

struct ChordSymbol {
  /// The longest symbol: all degrees of a formula with their signs and a bass.
  static constexpr std::size_t kMostBytes = 100;

  NoteName root;
  Formula formula;
  /// A bass that is not the root; it need not belong to the chord.
  std::optional<NoteName> bass;

  /// The pitch classes that sound, with the bass.
  [[nodiscard]] PitchClassSet Notes() const;

  bool operator==(const ChordSymbol&) const = default;
};

struct ChordReading {
  MeaningOfB b = MeaningOfB::kBNatural;
  /// Whether "Do7" is a chord on do (C7) or a diminished chord on D.
  bool solfegeFirst = false;
};

/// How chord symbols of a language are read.
[[nodiscard]] ChordReading ChordReadingIn(NoteLanguage language);

/// A root, the rest of the symbol and a bass: "Am7", "C/E". A bare root is a major triad.
[[nodiscard]] Parsed<ChordSymbol> ParseChordSymbol(std::string_view text, ChordReading reading = {});

/// A symbol without its root: "m7b5", "sus4". An empty text is a major triad.
[[nodiscard]] Parsed<Formula> ParseChordSuffix(std::string_view text);

/// The symbol without its root, in ASCII. Any formula has one: what no common sign expresses is added ("add") or
/// omitted
/// ("no"). ParseChordSuffix reads it back as the same set of notes if the formula contains 1, and no double accidental
/// except bb7.
[[nodiscard]] std::string WriteChordSuffix(const Formula& formula);

/// An ASCII suffix with the accidentals of the style: "m7b5" with a flat sign.
[[nodiscard]] std::string StyledSuffix(std::string_view suffix, NoteStyle style);

[[nodiscard]] std::string Write(const ChordSymbol& chord, NoteStyle style = {});

}  // namespace tonalith::theory
