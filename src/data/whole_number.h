// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A number that is whole though it is held as a fraction. Where such a one goes into a column of texts, "2212221" is to
// stand there and not "2212221.0". A pure function.

#pragma once

#include <cmath>
#include <cstdint>

#include "core/value.h"

namespace tonalith::data {

/// The value itself, or the whole number that a fraction without a rest is.
inline core::Value WithoutEmptyFraction(core::Value value) {
  constexpr double kExact = 9007199254740992.0;
  const auto* number = std::get_if<double>(&value.Raw());
  if (number == nullptr || std::trunc(*number) != *number || std::abs(*number) > kExact) return value;
  return static_cast<std::int64_t>(*number);
}

}  // namespace tonalith::data
