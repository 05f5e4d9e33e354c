// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What follows from a neck: every note's name, octave, sound file, accessible name and place, the design coordinates of
// the lines, and where a key leads among the notes. Numbers in, numbers out: no widget, no state after construction,
// any thread. Positions are twips of the form's client area, sizes of things that are only painted are pixels. An index
// that no note has throws std::out_of_range; another failure is named where it may happen.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/neck.h"
#include "paint/twips.h"

namespace tonalith::views {

/// One note of the neck: the string row 1.. from the highest string, and the position 0 (open).. on it.
struct NotePlace {
  int row = 0;
  int position = 0;
  std::string tag;
  std::int16_t octave = 0;
  std::string accessibleName;
};

struct LineGeometry {
  paint::Twips x1;
  paint::Twips y1;
  paint::Twips x2;
  paint::Twips y2;
};

enum class Move { kLeft, kRight, kUp, kDown, kHome, kEnd };

class FretboardLayout {
 public:
  static constexpr paint::Twips kImageSize{435};
  static constexpr paint::Twips kPositionStep{940};
  static constexpr paint::Twips kBaseLeft{600};
  static constexpr paint::Twips kStringSpacing{480};

  explicit FretboardLayout(const core::Neck& neck = core::Neck::Standard());

  [[nodiscard]] int Rows() const { return rows_; }
  [[nodiscard]] int Positions() const { return positions_; }
  [[nodiscard]] int NoteCount() const { return rows_ * positions_; }
  [[nodiscard]] const NotePlace& Note(int index) const { return notes_.at(static_cast<std::size_t>(index)); }
  /// The index of the note at a string row (1..) and position (0..).
  [[nodiscard]] int IndexAt(int row, int position) const { return (row - 1) * positions_ + position; }

  /// The place of a note image, from the left edge of its row's base image and its string line's y1. Left is a 16-bit
  /// number: beyond 32767 it throws failure 6.
  [[nodiscard]] static paint::Twips Left(paint::Twips baseLeft, int position);
  [[nodiscard]] static paint::Twips Top(paint::Twips lineY1);
  /// The x of the fret line behind a note image, and the place of the marker below it.
  [[nodiscard]] static paint::Twips FretX(paint::Twips imageLeft);
  [[nodiscard]] static paint::Twips MarkerLeft(paint::Twips imageLeft);
  [[nodiscard]] static paint::Twips MarkerTop(paint::Twips fret1Y2);

  /// Where the lines stand at design time: each string's, the nut and the first fret.
  [[nodiscard]] static LineGeometry StringLine(int row);
  [[nodiscard]] LineGeometry NutLine() const;
  [[nodiscard]] LineGeometry FirstFret() const;
  /// The upper and the lower edge of all that belongs to a neck of so many strings, the fret numbers below it included.
  [[nodiscard]] static paint::Twips AreaTop();
  [[nodiscard]] static paint::Twips AreaBottom(int strings);

  /// The frets that carry an inlay.
  [[nodiscard]] static bool HasInlay(int fret);
  [[nodiscard]] static bool HasDoubleInlay(int fret);
  /// The frets whose number has a control of its own, and all those whose number is painted below the neck.
  [[nodiscard]] static const std::vector<int>& MarkedFrets();
  [[nodiscard]] std::vector<int> NumberedFrets() const;

  /// Where a key leads among the visible notes, from `index`: along the string, to the nearest note of the next string
  /// that has one, to the ends of the string. Nothing if there is no such note.
  [[nodiscard]] std::optional<int> Neighbour(int index, Move move, const std::vector<bool>& visible) const;
  /// The visible note that is nearest to `index`: on its own string if there is one, otherwise on the closest string.
  [[nodiscard]] std::optional<int> Nearest(int index, const std::vector<bool>& visible) const;

 private:
  [[nodiscard]] std::optional<int> NearestInRow(int row, int position, const std::vector<bool>& visible) const;

  int rows_;
  int positions_;
  std::vector<NotePlace> notes_;
};

/// The number of the sound file of a note: note number + 12 x (octave - 2) for octaves 2 to 5, the note number for any
/// other octave.
std::int16_t OctaveSoundNumber(core::NoteNumber note, std::int16_t octave);

}  // namespace tonalith::views
