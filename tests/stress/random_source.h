// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The one source of chance of a stress: the same seed gives the same throws on every machine and with every library,
// because the bounds are made here and not by the library's distributions. One thread; never fails.

#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace tonalith::stress {

class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) : generator_(seed) {}
  /// A stream of its own for each part of a run.
  RandomSource(std::uint64_t seed, std::uint64_t part) : generator_(seed * 1000003U + part) {}

  /// 0 up to `bound` - 1; 0 for a bound below 1.
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
