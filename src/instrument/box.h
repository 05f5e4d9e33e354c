// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Builds the box of a scale at one place of the hand; positions.h has the rules. Strings are in ascending order of
// pitch here.

#pragma once

#include <optional>
#include <vector>

#include "instrument/positions.h"
#include "theory/pitch_class_set.h"

namespace tonalith::instrument {

/// The frets that the hand covers.
inline constexpr int kHandFrets = 4;

struct Box {
  /// The fret of the index finger.
  int hand = 0;
  /// The sum of the frets by which notes are outside the hand.
  int stretch = 0;
  /// For each string in ascending order of pitch.
  std::vector<std::vector<int>> frets;

  [[nodiscard]] int Notes() const;
  /// The sum of the squares of the number of notes per string: smaller is more even.
  [[nodiscard]] int Unevenness() const;
  /// The sum of the distances from the first to the last fret of each string.
  [[nodiscard]] int Spans() const;
};

/// Which string has a pitch that the hand reaches on two.
enum class SamePitch { kOnHigherString, kOnLowerString };

class BoxBuilder {
 public:
  /// `open` has the MIDI numbers of the open strings, ascending. Frets from `lowest` to `highest` exist.
  BoxBuilder(std::vector<int> open, theory::PitchClassSet notes, int lowest, int highest);

  /// Nothing if the hand leaves the neck or a gap remains.
  [[nodiscard]] std::optional<Box> At(int hand, SamePitch samePitch = SamePitch::kOnHigherString) const;

  [[nodiscard]] const std::vector<int>& OpenStrings() const { return open_; }
  [[nodiscard]] bool IsInScale(int pitch) const { return notes_.Contains(theory::PitchClass(pitch)); }

 private:
  /// How far the hand stretches in both directions, in frets.
  struct Reach {
    int down = 0;
    int up = 0;
  };
  [[nodiscard]] std::optional<Box> With(int hand, Reach reach, SamePitch samePitch) const;
  void AddHand(Box& box, SamePitch samePitch) const;
  [[nodiscard]] bool FillGap(Box& box, std::size_t lower, Reach reach) const;
  void AddOuterNotes(Box& box, Reach reach) const;

  std::vector<int> open_;
  theory::PitchClassSet notes_;
  int lowest_ = 0;
  int highest_ = 0;
};

}  // namespace tonalith::instrument
