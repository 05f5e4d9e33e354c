// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Twips, the unit of the geometry of forms: 1440 per inch, 15 per pixel at scale 1. Conversion to integer pixels rounds
// toward zero, as all staff coordinates do.

#pragma once

#include <compare>
#include <cstdint>

namespace tonalith::paint {

inline constexpr std::int32_t kTwipsPerPixel = 15;

struct Twips {
  std::int32_t value = 0;

  friend constexpr auto operator<=>(const Twips&, const Twips&) = default;
  friend constexpr Twips operator+(Twips a, Twips b) { return {a.value + b.value}; }
  friend constexpr Twips operator-(Twips a, Twips b) { return {a.value - b.value}; }
  friend constexpr Twips operator*(Twips a, std::int32_t times) { return {a.value * times}; }
};

/// A 32-bit number of twips in integer pixels, rounded toward zero (2450 gives 163, 5 and -14 give 0).
constexpr std::int32_t TwipsToPixels(std::int32_t value) { return value / kTwipsPerPixel; }
constexpr std::int32_t TwipsToPixels(Twips twips) { return TwipsToPixels(twips.value); }

/// The same length without rounding, for painting.
constexpr double ExactPixels(Twips twips) { return static_cast<double>(twips.value) / kTwipsPerPixel; }

/// The nearest integer pixel, for the position of a widget.
constexpr std::int32_t NearestPixel(Twips twips) {
  const std::int32_t half = twips.value < 0 ? -(kTwipsPerPixel / 2) : kTwipsPerPixel / 2;
  return (twips.value + half) / kTwipsPerPixel;
}

}  // namespace tonalith::paint
