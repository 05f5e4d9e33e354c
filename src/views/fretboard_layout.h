// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The layout of a neck: pitch, name, accessible name and position of each note, the initial coordinates of the lines,
// and the target of each navigation key. Positions are twips of the form's client area, sizes of painted parts are
// pixels. Immutable, any thread. An invalid note index throws std::out_of_range.

#pragma once

#include <QRect>
#include <optional>
#include <string>
#include <vector>

#include "core/neck.h"
#include "paint/twips.h"

namespace tonalith::views {

/// One note of the neck: the string, counted from 1 for the highest, and the position on it, 0 for the open string.
struct NotePlace {
  int row = 0;
  int position = 0;
  core::Pitch pitch;
  /// The name of the pitch class.
  std::string tag;
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

  explicit FretboardLayout(const core::Neck& neck);

  [[nodiscard]] int Rows() const { return rows_; }
  [[nodiscard]] int Positions() const { return positions_; }
  [[nodiscard]] int NoteCount() const { return rows_ * positions_; }
  [[nodiscard]] const NotePlace& Note(int index) const { return notes_.at(static_cast<std::size_t>(index)); }
  /// The index of the note on string `row` (from 1) at `position` (from 0).
  [[nodiscard]] int IndexAt(int row, int position) const { return (row - 1) * positions_ + position; }

  /// The position of a note image, from the left edge of the base image of its string and the y1 of its string line.
  /// Left is a 16-bit number: a value above 32767 throws failure 6.
  [[nodiscard]] static paint::Twips Left(paint::Twips baseLeft, int position);
  [[nodiscard]] static paint::Twips Top(paint::Twips lineY1);
  /// The x of the fret line to the right of a note image, and the position of the marker below it.
  [[nodiscard]] static paint::Twips FretX(paint::Twips imageLeft);
  [[nodiscard]] static paint::Twips MarkerLeft(paint::Twips imageLeft);
  [[nodiscard]] static paint::Twips MarkerTop(paint::Twips fret1Y2);

  /// The initial coordinates of each string, the nut and the first fret.
  [[nodiscard]] static LineGeometry StringLine(int row);
  [[nodiscard]] LineGeometry NutLine() const;
  [[nodiscard]] LineGeometry FirstFret() const;
  /// The rectangle of a neck with its fret numbers, in pixels of the form's client area.
  [[nodiscard]] static QRect AreaOf(const core::Neck& neck);

  /// Whether a fret has an inlay.
  [[nodiscard]] static bool HasInlay(int fret);
  [[nodiscard]] static bool HasDoubleInlay(int fret);
  /// The frets whose number is a control, and all frets whose number is painted below the neck.
  [[nodiscard]] static const std::vector<int>& MarkedFrets();
  [[nodiscard]] std::vector<int> NumberedFrets() const;

  /// The target of a key among the visible notes, from `index`: along the string, to the nearest note on the next
  /// string that has one, to the ends of the string. Returns no value if there is no such note.
  [[nodiscard]] std::optional<int> Neighbour(int index, Move move, const std::vector<bool>& visible) const;
  /// The visible note nearest to `index`: on the same string if there is one, otherwise on the closest string.
  [[nodiscard]] std::optional<int> Nearest(int index, const std::vector<bool>& visible) const;

 private:
  [[nodiscard]] std::optional<int> NearestInRow(int row, int position, const std::vector<bool>& visible) const;

  int rows_;
  int positions_;
  std::vector<NotePlace> notes_;
};

}  // namespace tonalith::views
