// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Converts integers that are stored as floating-point numbers, so that a text column gets "2212221" and not
// "2212221.0".

#pragma once

#include <cmath>
#include <cstdint>

#include "core/value.h"

namespace tonalith::data {

/// The value itself, or an integer for a floating-point number without a fraction.
inline core::Value WithoutEmptyFraction(core::Value value) {
  constexpr double kExact = 9007199254740992.0;
  const auto* number = std::get_if<double>(&value.Raw());
  if (number == nullptr || std::trunc(*number) != *number || std::abs(*number) > kExact) return value;
  return static_cast<std::int64_t>(*number);
}

}  // namespace tonalith::data
