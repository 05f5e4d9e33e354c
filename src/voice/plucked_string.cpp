// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "voice/plucked_string.h"

#include <cmath>

#include "voice/filters.h"

namespace tonalith::voice {

PluckedString::PluckedString(double hertz, double decay, double trebleHertz, double trebleDecay) {
  ShapeLoss(hertz, decay, trebleHertz, trebleDecay);
  Tune(hertz);
}

// The loss filter g / (1 + p z^-1) must have two given gains: the loss of one period at the fundamental and at the
// treble partial. Their ratio gives p as the root of a quadratic inside the unit circle; the gain at the fundamental
// then gives g.
void PluckedString::ShapeLoss(double hertz, double decay, double trebleHertz, double trebleDecay) {
  const double gain = std::pow(10.0, -3.0 / (hertz * decay));
  const double trebleGain = std::pow(10.0, -3.0 / (hertz * trebleDecay));
  const double ratio = (trebleGain / gain) * (trebleGain / gain);
  const double cosine = std::cos(Omega(hertz));
  const double half = cosine - ratio * std::cos(Omega(trebleHertz));
  const double rest = 1.0 - ratio;
  lossPole_ = (std::sqrt(half * half - rest * rest) - half) / rest;
  lossGain_ = gain * std::sqrt(1.0 + 2.0 * lossPole_ * cosine + lossPole_ * lossPole_);
}

// Phase delays are calculated at the fundamental, where they must be exact.
void PluckedString::Tune(double hertz) {
  const double omega = Omega(hertz);
  const double lossDelay = std::atan2(-lossPole_ * std::sin(omega), 1.0 + lossPole_ * std::cos(omega)) / omega;
  const double left = kSampleRate / hertz - lossDelay;
  // For delays between 0.5 and 1.5 samples the all-pass delays all lower partials nearly equally.
  const double whole = std::floor(left - 0.5);
  const double fraction = left - whole;
  allPass_ = std::sin((1.0 - fraction) * omega / 2.0) / std::sin((1.0 + fraction) * omega / 2.0);
  line_.assign(static_cast<std::size_t>(whole), 0.0);
}

}  // namespace tonalith::voice
