// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Chord shapes on any instrument. A shape needs at most four fingers (fingering.h); its highest and lowest fretted
// strings are at most three frets apart, four from fret 5 on; it contains the notes that chord_tones.h requires; the
// requested bass is its lowest note; at most one string is muted between sounding strings, and any number outside.
// Frets count from the capo. The same shape an octave higher is left out.

#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "instrument/chord_tones.h"
#include "instrument/fingering.h"
#include "instrument/frets.h"
#include "instrument/instrument.h"

namespace tonalith::instrument {

/// The distance from the lowest to the highest fretted string.
inline constexpr int kSpan = 3;
/// Frets get narrower: from here on the hand reaches one more.
inline constexpr int kFirstFretOfWideHand = 5;
inline constexpr int kWideSpan = 4;
inline constexpr int kMostInnerMuted = 1;

struct Shape {
  Frets frets;
  Fingering fingering;
  /// The notes of the chord that it omits.
  theory::PitchClassSet missing;

  bool operator==(const Shape&) const = default;
};

struct ShapeOptions {
  /// Shapes repeat after twelve frets; three more let those at the twelfth fret end.
  int highestFret = 15;
  std::size_t limit = std::numeric_limits<std::size_t>::max();
};

struct ShapeList {
  /// The best first. Before all others come the known shapes (known_shapes.h). Then: root in the bass, few omitted
  /// notes, not a part of a fuller shape with the same bass, no muted string inside, few fingers, small span, low on
  /// the neck, many strings.
  std::vector<Shape> shapes;
  /// False if there are more than the limits of grip_search.h allow.
  bool isComplete = true;
};

/// All shapes of a chord, empty for a formula without notes.
[[nodiscard]] ShapeList ShapesOf(const Instrument& instrument, const Chord& chord, const ShapeOptions& options = {});

}  // namespace tonalith::instrument
