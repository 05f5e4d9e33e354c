// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Names any notes as chords, the most likely name first. Players expect a plain name for plain notes, so an inverted
// triad precedes an altered chord on its bass: C/E, not Em#5.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "theory/chord_types.h"
#include "theory/note_name.h"
#include "theory/note_style.h"
#include "theory/pitch_class_set.h"

namespace tonalith::theory {

/// The notes to name.
struct Sounding {
  PitchClassSet notes;
  /// One of the notes.
  PitchClass bass;
  /// The names that were typed, if any; the root keeps its typed name.
  std::vector<NoteName> typed;

  /// The first note is the bass.
  [[nodiscard]] static Sounding FromNames(std::span<const NoteName> names);
  /// The lowest pitch is the bass, wherever it is in the list.
  [[nodiscard]] static Sounding FromPitches(std::span<const Pitch> pitches);
};

/// Why a name is where it is in the answer: the groups in their order.
enum class ChordGroup : std::uint8_t {
  /// A complete triad or seventh chord with its root in the bass.
  kRootPosition,
  /// A complete extended, added-note, sixth-ninth or altered chord with a common name and its root in the bass.
  kCommonOnRoot,
  /// A complete inverted triad.
  kInvertedTriad,
  /// A sixth or suspended chord on its root. Another common chord has the same notes.
  kEqualNotes,
  /// A complete inverted seventh chord, then inverted sixth and suspended chords.
  kInvertedSeventh,
  /// A chord on its root without its fifth.
  kFifthOmitted,
  /// A triad, or a seventh chord, over a bass that does not belong to it.
  kForeignBass,
  /// Other inversions, and types without a common name.
  kRare,
  /// No name has exactly these notes: the nearest ones, with what is missing and added.
  kNearest,
};

struct ChordName {
  NoteName root;
  /// A bass that is not the root.
  std::optional<NoteName> bass;
  const ChordType* type = nullptr;
  ChordGroup group = ChordGroup::kNearest;
  /// Notes of the chord that do not sound, and sounding notes that are neither in the chord nor its bass.
  std::vector<NoteName> missing;
  std::vector<NoteName> added;

  /// "Cm7b5", "C/E". A missing fifth is only listed in `missing`.
  [[nodiscard]] std::string Symbol(NoteStyle style = {}) const;
  /// "C minor 7 flat 5", "C major over E".
  [[nodiscard]] std::string FullName(NoteStyle style = {}) const;
};

/// The most names of an answer.
inline constexpr std::size_t kMostChordNames = 12;

/// The names of the notes in their order; empty only if there are no notes.
[[nodiscard]] std::vector<ChordName> FindChordNames(const Sounding& sounding, std::size_t limit = kMostChordNames);

}  // namespace tonalith::theory
