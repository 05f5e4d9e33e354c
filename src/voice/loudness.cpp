// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "voice/loudness.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "voice/filters.h"

namespace tonalith::voice {
namespace {

/// The first filter (shelf) of BS.1770, calculated for kSampleRate from its analogue corner, slope and gain.
Biquad HeadShelf() {
  const double k = std::tan(std::numbers::pi * 1681.974450955533 / kSampleRate);
  const double q = 0.7071752369554196;
  const double high = std::pow(10.0, 3.999843853973347 / 20.0);
  const double band = std::pow(high, 0.4996667741545416);
  const double a0 = 1.0 + k / q + k * k;
  return {(high + band * k / q + k * k) / a0, 2.0 * (k * k - high) / a0, (high - band * k / q + k * k) / a0,
          2.0 * (k * k - 1.0) / a0, (1.0 - k / q + k * k) / a0};
}

/// The second filter (high-pass) of BS.1770.
Biquad LowCut() {
  const double k = std::tan(std::numbers::pi * 38.13547087602444 / kSampleRate);
  const double q = 0.5003270373238773;
  const double a0 = 1.0 + k / q + k * k;
  return {1.0, -2.0, 1.0, 2.0 * (k * k - 1.0) / a0, (1.0 - k / q + k * k) / a0};
}

double LoudestWindow(const std::vector<double>& squares) {
  const std::size_t window = std::min(squares.size(), static_cast<std::size_t>(kSampleRate / 5.0));
  double sum = 0.0;
  double most = 0.0;
  for (std::size_t i = 0; i < squares.size(); ++i) {
    sum += squares[i];
    if (i >= window) {
      sum -= squares[i - window];
    }
    most = std::max(most, sum);
  }
  return 10.0 * std::log10(most / static_cast<double>(window));
}

}  // namespace

Loudness MeasureLoudness(std::span<const double> samples) {
  Biquad shelf = HeadShelf();
  Biquad cut = LowCut();
  std::vector<double> plain;
  std::vector<double> weighted;
  plain.reserve(samples.size());
  weighted.reserve(samples.size());
  for (const double sample : samples) {
    const double heard = cut.Next(shelf.Next(sample));
    plain.push_back(sample * sample);
    weighted.push_back(heard * heard);
  }
  return {LoudestWindow(plain), LoudestWindow(weighted)};
}

}  // namespace tonalith::voice
