// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A second implementation of the rules for shapes, written from their text and as simple as possible: every combination
// of frets is tried, every rule is a function of its own. It shares only the instruments with the room.

#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "instrument/frets.h"
#include "instrument/instrument.h"
#include "instrument/shapes.h"

namespace tonalith::instrument::tests {

/// A chord with the parts that the rules name, written by hand for each type.
struct RuledChord {
  std::string degrees;
  /// Semitones above the root.
  std::set<int> all;
  /// May be omitted, each one only together with those before it.
  std::vector<int> omittable;
};

/// Triads, sevenths, extended, altered, suspended and power chords.
const std::vector<RuledChord>& RuledChords();

/// A chord type on a root, with the requested bass or without.
struct RuledShapes {
  const Instrument* instrument = nullptr;
  const RuledChord* type = nullptr;
  int root = 0;
  std::optional<int> bass;
  int highestFret = 15;

  /// The first rule that the frets break; empty if they break none. Octave copies are not considered.
  [[nodiscard]] std::string BrokenRule(const Frets& frets) const;
  /// The number of notes that the frets omit.
  [[nodiscard]] int Omitted(const Frets& frets) const;
  [[nodiscard]] int BassOf(const Frets& frets) const;
  /// All frets that break no rule, without octave copies.
  [[nodiscard]] std::set<Frets> All() const;
  /// The same frets an octave lower, if each string has them.
  [[nodiscard]] std::optional<Frets> OctaveBelow(const Frets& frets) const;
};

/// The fewest fingers that can stop these frets, by trying all barres.
int FewestFingers(const Frets& frets);

/// What is wrong with a fingering; empty if nothing is.
std::string WrongFingering(const Frets& frets, const Fingering& fingering);

int InnerMutedStrings(const Frets& frets);
/// The distance from the lowest to the highest stopped fret, and the lowest.
int SpanOf(const Frets& frets);
int LowestStopped(const Frets& frets);

/// Whether `part` is `whole` with more muted strings.
bool IsPart(const Frets& part, const Frets& whole);

}  // namespace tonalith::instrument::tests
