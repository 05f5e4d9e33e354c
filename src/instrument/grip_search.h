// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds every way to play a chord on an instrument by the rules of shapes.h, in no order of preference. Grips are small
// fixed values because there are thousands for one chord.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "instrument/chord_tones.h"
#include "instrument/frets.h"
#include "instrument/instrument.h"

namespace tonalith::instrument {

struct Grip {
  static constexpr std::int16_t kMuted = -1;

  using Strings = std::array<std::int16_t, Instrument::kMostStrings>;

  /// One fret per string of the instrument; the rest is kMuted.
  Strings frets = Silence();

  /// The frets as one number, 0 for a muted string: a subset of a grip has the same bits or zeros in each place.
  [[nodiscard]] std::uint64_t Key() const;
  [[nodiscard]] Frets ToFrets(int strings) const;

  bool operator==(const Grip&) const = default;

 private:
  static constexpr Strings Silence() {
    Strings strings{};
    strings.fill(kMuted);
    return strings;
  }
};

/// The bits of Grip::Key for one string.
inline constexpr int kBitsPerString = 6;

struct GripList {
  std::vector<Grip> grips;
  /// False if the search stopped at kMostSearchSteps or kMostGrips.
  bool isComplete = true;
};

/// About a second. A chord on a guitar takes some ten thousand steps, on nine strings a million; ten strings in unison
/// could take hours.
inline constexpr std::size_t kMostSearchSteps = 20'000'000;
/// Ranking takes memory and time for each one, about a second for all. A chord on a guitar has some thousand, a ninth
/// on nine strings nearly as many as this.
inline constexpr std::size_t kMostGrips = 200'000;

/// Frets up to `highestFret`.
[[nodiscard]] GripList FindGrips(const Instrument& instrument, const Chord& chord, int highestFret);

}  // namespace tonalith::instrument
