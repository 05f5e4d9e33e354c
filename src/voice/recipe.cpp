// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "voice/recipe.h"

#include <array>
#include <cmath>

namespace tonalith::voice {

double Curve::At(Pitch pitch) const {
  if (pitch <= points_.front().pitch) {
    return points_.front().value;
  }
  for (std::size_t i = 1; i < points_.size(); ++i) {
    const Point& left = points_[i - 1];
    const Point& right = points_[i];
    if (pitch <= right.pitch) {
      return left.value + (right.value - left.value) * (pitch - left.pitch) / (right.pitch - left.pitch);
    }
  }
  return points_.back().value;
}

Pitch SoundSet::PitchOf(int number) const {
  if (steps == Steps::kChromatic) {
    return first + number;
  }
  constexpr std::array<int, 7> kMajor = {0, 2, 4, 5, 7, 9, 11};
  return first + 12 * (number / 7) + kMajor.at(static_cast<std::size_t>(number % 7));
}

double SoundSet::SecondsOf(int number) const {
  return count < 2 ? firstSeconds : firstSeconds + (lastSeconds - firstSeconds) * number / (count - 1);
}

double HertzOf(Pitch pitch) { return 440.0 * std::exp2((pitch - 69) / 12.0); }

double FromDecibels(double decibels) { return std::pow(10.0, decibels / 20.0); }

}  // namespace tonalith::voice
