// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The chord types that the finder knows by name, and an index from sets of notes to them. Created at the first use and
// never changed, so any thread may read them.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "theory/formula.h"
#include "theory/pitch_class_set.h"

namespace tonalith::theory {

enum class ChordFamily : std::uint8_t {
  kTriad,
  kSeventh,
  /// Extended, added-note, sixth-ninth and altered chords with a common name.
  kCommon,
  /// Sixth and suspended chords: another common chord has the same notes.
  kEqualNotes,
  kRare,
};

struct ChordType {
  /// The symbol after the root: "m7b5".
  std::string_view suffix;
  /// In words, after the root: "minor 7 flat 5".
  std::string_view words;
  ChordFamily family = ChordFamily::kRare;
  Formula formula;
  /// The signs that a reader takes in: each word, number and accidental is one.
  int signs = 0;
};

[[nodiscard]] const std::vector<ChordType>& ChordTypes();

/// One way to read a set of notes, counted from the root, as a chord type.
struct ChordMatch {
  const ChordType* type = nullptr;
  /// Degrees of the type that players leave out: the fifth, and the ninth or eleventh below a higher one.
  PitchClassSet missing;
};

/// The types that have exactly these notes, or these and omitted ones. Complete ones first.
[[nodiscard]] const std::vector<ChordMatch>& ChordsWithNotes(PitchClassSet pattern);

}  // namespace tonalith::theory
