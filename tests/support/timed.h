// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Time limits in tests. The documented limits apply on an idle computer: set TONALITH_TIMED there. Elsewhere the limit
// is multiplied, so that only an excessive wait fails the test.

#pragma once

#include <cstdlib>

namespace tonalith::tests {

template <class Time>
[[nodiscard]] Time Timely(Time limit) {
  constexpr int kBusyFactor = 20;
  return std::getenv("TONALITH_TIMED") != nullptr ? limit : limit * kBusyFactor;
}

}  // namespace tonalith::tests
