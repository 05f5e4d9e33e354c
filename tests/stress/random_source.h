// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The random generator of a stress test. The same seed gives the same numbers on every system: std::mt19937_64 is
// standardised, the distributions of the standard library are not and therefore not used.

#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace tonalith::stress {

class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) : generator_(seed) {}
  /// An independent sequence for each part of a run.
  RandomSource(std::uint64_t seed, std::uint64_t part) : generator_(seed * 1000003U + part) {}

  /// A number from 0 to `bound` - 1; 0 if `bound` is below 1.
  int Below(int bound) {
    if (bound < 1) return 0;
    return static_cast<int>(((generator_() >> 32U) * static_cast<std::uint64_t>(bound)) >> 32U);
  }
  int Between(int first, int last) { return first + Below(last - first + 1); }
  bool OneIn(int chances) { return Below(chances) == 0; }

  template <class Entry>
  const Entry& Pick(const std::vector<Entry>& entries) {
    return entries.at(static_cast<std::size_t>(Below(static_cast<int>(entries.size()))));
  }

 private:
  std::mt19937_64 generator_;
};

}  // namespace tonalith::stress
