// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One vibration of a plucked string: a delay line closed over a loss filter and a tuning filter, after K. Karplus and
// A. Strong, "Digital Synthesis of Plucked-String and Drum Timbres", and D. A. Jaffe and J. O. Smith, "Extensions of
// the Karplus-Strong Plucked-String Algorithm", both Computer Music Journal 7(2), 1983. The loop is exactly one period
// long at the fundamental: the all-pass adds the fraction of a sample that delay line and loss filter leave. Arguments
// are not checked.

#pragma once

#include <cstddef>
#include <vector>

namespace tonalith::voice {

class PluckedString {
 public:
  /// `hertz` between 20 and 4000. The fundamental decays by 60 dB in `decay` seconds, a partial at `trebleHertz` (above
  /// the fundamental) in the shorter `trebleDecay`.
  PluckedString(double hertz, double decay, double trebleHertz, double trebleDecay);

  /// Takes one sample of the pluck and returns one sample of the wave towards the bridge.
  double Next(double pluck) {
    const double delayed = line_[at_];
    const double tuned = allPass_ * delayed + tuneState_;
    tuneState_ = delayed - allPass_ * tuned;
    lossState_ = lossGain_ * tuned - lossPole_ * lossState_;
    const double out = pluck + lossState_;
    line_[at_] = out;
    at_ = at_ + 1 == line_.size() ? 0 : at_ + 1;
    return out;
  }

 private:
  void ShapeLoss(double hertz, double decay, double trebleHertz, double trebleDecay);
  void Tune(double hertz);

  std::vector<double> line_;
  std::size_t at_ = 0;
  double lossGain_ = 1.0;
  double lossPole_ = 0.0;
  double lossState_ = 0.0;
  double allPass_ = 0.0;
  double tuneState_ = 0.0;
};

}  // namespace tonalith::voice
