// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The filters of the guitar synthesis. Each takes one sample at a time and stores one or two samples of state; all
// start at zero and are stable for the arguments that their constructors allow.

#pragma once

#include <cmath>
#include <numbers>

namespace tonalith::voice {

inline constexpr double kSampleRate = 44100.0;

/// Angular frequency in radians per sample.
inline double Omega(double hertz) { return 2.0 * std::numbers::pi * hertz / kSampleRate; }

/// 6 dB per octave above the corner frequency, 0 < hertz < half the sample rate.
class OnePoleLowPass {
 public:
  explicit OnePoleLowPass(double hertz) : keep_(std::exp(-Omega(hertz))) {}
  double Next(double in) { return state_ = (1.0 - keep_) * in + keep_ * state_; }

 private:
  double keep_;
  double state_ = 0.0;
};

/// The complement of a OnePoleLowPass.
class OnePoleHighPass {
 public:
  explicit OnePoleHighPass(double hertz) : low_(hertz) {}
  double Next(double in) { return in - low_.Next(in); }

 private:
  OnePoleLowPass low_;
};

/// A second-order section in transposed direct form II; the coefficients are already divided by a0.
class Biquad {
 public:
  Biquad(double b0, double b1, double b2, double a1, double a2) : b0_(b0), b1_(b1), b2_(b2), a1_(a1), a2_(a2) {}

  /// One resonance with gain 1 at its centre and none at 0 Hz.
  static Biquad Resonance(double hertz, double sharpness) {
    const double alpha = std::sin(Omega(hertz)) / (2.0 * sharpness);
    const double scale = 1.0 / (1.0 + alpha);
    return {alpha * scale, 0.0, -alpha * scale, -2.0 * std::cos(Omega(hertz)) * scale, (1.0 - alpha) * scale};
  }

  double Next(double in) {
    const double out = b0_ * in + first_;
    first_ = b1_ * in - a1_ * out + second_;
    second_ = b2_ * in - a2_ * out;
    return out;
  }

 private:
  double b0_;
  double b1_;
  double b2_;
  double a1_;
  double a2_;
  double first_ = 0.0;
  double second_ = 0.0;
};

}  // namespace tonalith::voice
