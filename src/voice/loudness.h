// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How loud a note is. The level of a note is taken over its loudest 200 ms, in decibels against full scale, as the mean
// of two readings: the plain effective value, and the effective value after the K weighting of ITU-R BS.1770, which
// hears as people do. Between the two no string stands out, neither on a meter nor to the ear. Pure functions.

#pragma once

#include <span>

namespace tonalith::voice {

struct Loudness {
  double plain = 0.0;     ///< Decibels, a full-scale square wave has 0.
  double weighted = 0.0;  ///< The same after the K weighting.

  [[nodiscard]] double Level() const { return (plain + weighted) / 2.0; }
};

/// For at least 200 ms of samples at 44.1 kHz, full scale being 1; silence is minus infinity.
Loudness MeasureLoudness(std::span<const double> samples);

}  // namespace tonalith::voice
