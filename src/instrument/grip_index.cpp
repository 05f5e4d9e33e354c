// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/grip_index.h"

#include <bit>

#include "instrument/shapes.h"

namespace tonalith::instrument {
namespace {

constexpr std::uint64_t kStringBits = (1U << kBitsPerString) - 1;
/// 2 to the 64th, divided by the golden ratio: spreads neighbouring keys.
constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15U;

/// The bits of the strings from `first` to `last`.
std::uint64_t BitsOf(int first, int last) {
  std::uint64_t bits = 0;
  for (int string = first; string <= last; ++string) bits |= kStringBits << (kBitsPerString * string);
  return bits;
}

/// The sets of strings that may sound together: neighbours, of which at most one is muted.
std::vector<std::uint64_t> SetsOfStrings(int strings) {
  static_assert(kMostInnerMuted == 1);
  std::vector<std::uint64_t> sets;
  for (int first = 0; first < strings; ++first) {
    for (int last = first; last < strings; ++last) {
      sets.push_back(BitsOf(first, last));
      for (int muted = first + 1; muted < last; ++muted) sets.push_back(BitsOf(first, last) & ~BitsOf(muted, muted));
    }
  }
  return sets;
}

}  // namespace

GripIndex::GripIndex(std::span<const Grip> grips) {
  const std::size_t size = std::bit_ceil(2 * grips.size() + 2);
  places_.resize(size);
  shift_ = 64 - std::countr_zero(size);
  for (std::size_t i = 0; i < grips.size(); ++i) {
    const std::uint64_t key = grips[i].Key();
    std::size_t place = FirstPlace(key);
    while (places_[place].key != 0) place = Next(place);
    places_[place] = {key, i};
  }
}

std::size_t GripIndex::FirstPlace(std::uint64_t key) const { return static_cast<std::size_t>(key * kSpread >> shift_); }

std::optional<std::size_t> GripIndex::Find(std::uint64_t key) const {
  for (std::size_t place = FirstPlace(key); places_[place].key != 0; place = Next(place)) {
    if (places_[place].key == key) return places_[place].index;
  }
  return std::nullopt;
}

std::vector<bool> ArePartsOfOthers(int strings, std::span<const Grip> grips,
                                   std::span<const theory::PitchClass> basses) {
  const std::vector<std::uint64_t> sets = SetsOfStrings(strings);
  const GripIndex index(grips);
  std::vector<bool> areParts(grips.size(), false);
  for (std::size_t fuller = 0; fuller < grips.size(); ++fuller) {
    const std::uint64_t key = grips[fuller].Key();
    for (const std::uint64_t set : sets) {
      if ((key & set) == key || (key & set) == 0) continue;
      const auto part = index.Find(key & set);
      if (part && basses[*part] == basses[fuller]) areParts[*part] = true;
    }
  }
  return areParts;
}

}  // namespace tonalith::instrument
