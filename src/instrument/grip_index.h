// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds grips by their frets, and grips that are parts of others: with the same frets, but more muted strings.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "instrument/grip_search.h"
#include "theory/pitch.h"

namespace tonalith::instrument {

/// A hash table of keys; the standard one takes most of the time of a search.
class GripIndex {
 public:
  explicit GripIndex(std::span<const Grip> grips);

  /// The place of the grip with this key in the list, if it is there. A key of 0, all strings muted, is in no list.
  [[nodiscard]] std::optional<std::size_t> Find(std::uint64_t key) const;

 private:
  struct Place {
    std::uint64_t key = 0;
    std::size_t index = 0;
  };
  [[nodiscard]] std::size_t FirstPlace(std::uint64_t key) const;
  /// The number of places is a power of two.
  [[nodiscard]] std::size_t Next(std::size_t place) const { return (place + 1) & (places_.size() - 1); }

  std::vector<Place> places_;
  int shift_ = 0;
};

/// Whether each grip on this number of strings is a part of another one with the same bass. `basses` has the bass of
/// each grip.
[[nodiscard]] std::vector<bool> ArePartsOfOthers(int strings, std::span<const Grip> grips,
                                                 std::span<const theory::PitchClass> basses);

}  // namespace tonalith::instrument
