// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A set of pitch classes in twelve bits: the notes of a scale or a chord without order, octave or spelling. A set
// counts from C, or from a root if it describes a pattern: then bit 0 is the root.

#pragma once

#include <array>
#include <bit>
#include <compare>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "theory/pitch.h"

namespace tonalith::theory {

class PitchClassSet {
 public:
  /// The number of different sets, the empty one included.
  static constexpr int kCount = 1 << kSemitonesPerOctave;

  constexpr PitchClassSet() = default;
  constexpr PitchClassSet(std::initializer_list<int> semitones) {
    for (const int semitone : semitones) Add(PitchClass(semitone));
  }
  /// Bit n is pitch class n; bits above 11 are ignored.
  [[nodiscard]] static constexpr PitchClassSet FromBits(unsigned bits) {
    PitchClassSet set;
    set.bits_ = static_cast<std::uint16_t>(bits & (kCount - 1U));
    return set;
  }
  /// The notes of a pattern of semitone steps, one digit (1 to 9) a step: "2212221". The steps must sum to 12.
  [[nodiscard]] static std::optional<PitchClassSet> FromPattern(std::string_view pattern);

  [[nodiscard]] constexpr unsigned Bits() const { return bits_; }
  [[nodiscard]] constexpr int Size() const { return std::popcount(bits_); }
  [[nodiscard]] constexpr bool IsEmpty() const { return bits_ == 0; }
  [[nodiscard]] constexpr bool Contains(PitchClass pitchClass) const {
    return (bits_ >> pitchClass.Semitones() & 1U) != 0;
  }
  [[nodiscard]] constexpr bool Contains(PitchClassSet other) const { return (other.bits_ & ~bits_) == 0; }
  constexpr void Add(PitchClass pitchClass) {
    bits_ = static_cast<std::uint16_t>(bits_ | 1U << pitchClass.Semitones());
  }
  constexpr void Remove(PitchClass pitchClass) {
    bits_ = static_cast<std::uint16_t>(bits_ & ~(1U << pitchClass.Semitones()));
  }

  /// All members moved up by any number of semitones.
  [[nodiscard]] constexpr PitchClassSet Transposed(int semitones) const {
    const int up = PitchClass(semitones).Semitones();
    return FromBits(static_cast<unsigned>(bits_) << up | static_cast<unsigned>(bits_) >> (kSemitonesPerOctave - up));
  }
  /// The set counted from `root`: bit 0 of the result is `root`.
  [[nodiscard]] constexpr PitchClassSet From(PitchClass root) const { return Transposed(-root.Semitones()); }
  /// The pattern counted from its member number `index` (from 0): mode 1 of the major scale is Dorian. Any index; an
  /// empty set gives an empty set.
  [[nodiscard]] PitchClassSet Mode(int index) const;
  /// Mirrored at pitch class 0.
  [[nodiscard]] PitchClassSet Inverted() const;
  [[nodiscard]] constexpr PitchClassSet Complement() const { return FromBits(~static_cast<unsigned>(bits_)); }
  /// The most compact rotation of the set or its inversion, from 0; of several, the one without high members, as J.
  /// Rahn chooses ("Basic Atonal Theory", 1980).
  [[nodiscard]] PitchClassSet PrimeForm() const;
  /// How many pairs of members are 1, 2, ... 6 semitones apart.
  [[nodiscard]] std::array<int, kSemitonesPerOctave / 2> IntervalVector() const;

  /// The members, ascending from C (or from the root of a pattern).
  [[nodiscard]] std::vector<PitchClass> Members() const;
  /// The steps in semitones from each member to the next, back to the first member at the end. Empty for an empty set.
  [[nodiscard]] std::vector<int> Steps() const;
  /// The inverse of FromPattern; nothing if the set lacks 0 or has a step above 9.
  [[nodiscard]] std::optional<std::string> Pattern() const;

  constexpr auto operator<=>(const PitchClassSet&) const = default;  // NOLINT(modernize-use-nullptr)

 private:
  std::uint16_t bits_ = 0;
};

[[nodiscard]] constexpr PitchClassSet operator|(PitchClassSet a, PitchClassSet b) {
  return PitchClassSet::FromBits(a.Bits() | b.Bits());
}
[[nodiscard]] constexpr PitchClassSet operator&(PitchClassSet a, PitchClassSet b) {
  return PitchClassSet::FromBits(a.Bits() & b.Bits());
}
/// The members of `a` that are not in `b`.
[[nodiscard]] constexpr PitchClassSet operator-(PitchClassSet a, PitchClassSet b) {
  return PitchClassSet::FromBits(a.Bits() & ~b.Bits());
}

}  // namespace tonalith::theory
