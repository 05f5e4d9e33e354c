// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The strings that positions use, in ascending order of pitch, and the way back to the order of the instrument: those
// from nut to bridge, one of each pitch.

#pragma once

#include <utility>
#include <vector>

#include "instrument/instrument.h"

namespace tonalith::instrument {

class LongStrings {
 public:
  explicit LongStrings(const Instrument& instrument) : strings_(static_cast<std::size_t>(instrument.Strings())) {
    for (const int index : instrument.LongStringsByPitch()) {
      const int open = instrument.Open(index).Midi();
      const bool isUnison = !open_.empty() && open_.back() == open;
      if (isUnison) {
        indices_.back() = index;
        continue;
      }
      indices_.push_back(index);
      open_.push_back(open);
    }
  }

  [[nodiscard]] bool IsEmpty() const { return indices_.empty(); }
  /// MIDI numbers, ascending.
  [[nodiscard]] const std::vector<int>& Open() const { return open_; }

  /// The frets of strings by pitch as frets of the strings of the instrument; the short strings have none.
  [[nodiscard]] std::vector<std::vector<int>> OfInstrument(const std::vector<std::vector<int>>& byPitch) const {
    std::vector<std::vector<int>> frets(strings_);
    for (std::size_t i = 0; i < byPitch.size(); ++i) frets.at(static_cast<std::size_t>(indices_[i])) = byPitch[i];
    return frets;
  }

 private:
  std::vector<int> indices_;
  std::vector<int> open_;
  std::size_t strings_ = 0;
};

}  // namespace tonalith::instrument
