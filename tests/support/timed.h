// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Upper bounds of times. What the program promises holds on a machine that does nothing else: there TONALITH_TIMED is
// set, and the promise itself is the bound. Anywhere else a test that takes a little longer says something about the
// machine, so only a wait that is out of all proportion fails it.

#pragma once

#include <cstdlib>

namespace tonalith::tests {

template <class Time>
[[nodiscard]] Time Timely(Time promised) {
  constexpr int kOutOfProportion = 20;
  return std::getenv("TONALITH_TIMED") != nullptr ? promised : promised * kOutOfProportion;
}

}  // namespace tonalith::tests
