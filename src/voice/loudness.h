// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Measures the loudness of a note over its loudest 200 ms, in decibels relative to full scale, as the mean of two
// values: the plain RMS value, and the RMS value after the K weighting of ITU-R BS.1770, which approximates hearing.
// With this mean no string is too loud, neither on a meter nor for a listener.

#pragma once

#include <span>

namespace tonalith::voice {

struct Loudness {
  double plain = 0.0;     ///< Decibels; 0 for a full-scale square wave.
  double weighted = 0.0;  ///< The same after the K weighting.

  [[nodiscard]] double Level() const { return (plain + weighted) / 2.0; }
};

/// Needs at least 200 ms of samples at 44.1 kHz, full scale 1. Silence gives minus infinity.
Loudness MeasureLoudness(std::span<const double> samples);

}  // namespace tonalith::voice
