// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_layout.h"

#include <QCoreApplication>
#include <cstdlib>
#include <limits>

#include "core/failure.h"

namespace tonalith::views {
namespace {

using paint::Twips;

constexpr Twips kFirstStringY{4200};
constexpr Twips kStringRight{15510};
constexpr Twips kNutX{1220};
// Above the line of the first string and below that of the last.
constexpr Twips kNutAbove{360};
constexpr Twips kNutBelow{285};
constexpr Twips kNeckAbove{330};
constexpr Twips kNeckBelow{255};
constexpr Twips kAreaAbove{810};
constexpr Twips kAreaBelow{930};
constexpr int kAreaWidth = 1080;
constexpr Twips kTopAboveLine{250};
constexpr Twips kFretAfterLeft{650};
constexpr Twips kMarkerAfterLeft{255};
constexpr Twips kMarkerBelowFret{250};

std::string AccessibleName(const std::string& tag, int row, int position) {
  const QString note = QString::fromStdString(tag);
  const QString name =
      position == 0
          ? QCoreApplication::translate("tonalith::views::FretboardView", "%1, string %2, open").arg(note).arg(row)
          : QCoreApplication::translate("tonalith::views::FretboardView", "%1, string %2, fret %3")
                .arg(note)
                .arg(row)
                .arg(position);
  return name.toStdString();
}

Twips StringY(int row) { return kFirstStringY + FretboardLayout::kStringSpacing * (row - 1); }

}  // namespace

FretboardLayout::FretboardLayout(const core::Neck& neck) : rows_(neck.Strings()), positions_(neck.positions) {
  for (int row = 1; row <= rows_; ++row) {
    for (int position = 0; position < positions_; ++position) {
      const core::Pitch pitch = neck.PitchAt(IndexAt(row, position));
      NotePlace note{row, position, pitch, core::CNumberToScore(pitch.PitchClass()), {}};
      note.accessibleName = AccessibleName(note.tag, row, position);
      notes_.push_back(std::move(note));
    }
  }
}

Twips FretboardLayout::Left(Twips baseLeft, int position) {
  const Twips left = baseLeft + kPositionStep * position;
  if (left.value > std::numeric_limits<std::int16_t>::max()) throw core::Failure::Overflow();
  return left;
}

Twips FretboardLayout::Top(Twips lineY1) { return lineY1 - kTopAboveLine; }
Twips FretboardLayout::FretX(Twips imageLeft) { return imageLeft + kFretAfterLeft; }
Twips FretboardLayout::MarkerLeft(Twips imageLeft) { return imageLeft + kMarkerAfterLeft; }
Twips FretboardLayout::MarkerTop(Twips fret1Y2) { return fret1Y2 + kMarkerBelowFret; }

LineGeometry FretboardLayout::StringLine(int row) {
  const Twips y = StringY(row);
  return {kBaseLeft, y, kStringRight, y};
}

LineGeometry FretboardLayout::NutLine() const {
  return {kNutX, StringY(1) - kNutAbove, kNutX, StringY(rows_) + kNutBelow};
}

LineGeometry FretboardLayout::FirstFret() const {
  const Twips x = FretX(Left(kBaseLeft, 1));
  return {x, StringY(1) - kNeckAbove, x, StringY(rows_) + kNeckBelow};
}

QRect FretboardLayout::AreaOf(const core::Neck& neck) {
  const int top = paint::NearestPixel(StringY(1) - kAreaAbove);
  return {0, top, kAreaWidth, paint::NearestPixel(StringY(neck.Strings()) + kAreaBelow) - top};
}

bool FretboardLayout::HasDoubleInlay(int fret) { return fret > 0 && fret % 12 == 0; }

bool FretboardLayout::HasInlay(int fret) {
  const int inOctave = fret % 12;
  return HasDoubleInlay(fret) || inOctave == 3 || inOctave == 5 || inOctave == 7 || inOctave == 9;
}

const std::vector<int>& FretboardLayout::MarkedFrets() {
  static const std::vector<int> frets{3, 5, 7, 9, 12};
  return frets;
}

std::vector<int> FretboardLayout::NumberedFrets() const {
  std::vector<int> frets;
  for (int fret = 1; fret < positions_; ++fret) {
    if (HasInlay(fret)) frets.push_back(fret);
  }
  return frets;
}

std::optional<int> FretboardLayout::NearestInRow(int row, int position, const std::vector<bool>& visible) const {
  std::optional<int> nearest;
  for (int candidate = 0; candidate < positions_; ++candidate) {
    if (!visible.at(static_cast<std::size_t>(IndexAt(row, candidate)))) continue;
    if (!nearest || std::abs(candidate - position) < std::abs(*nearest - position)) nearest = candidate;
  }
  if (!nearest) return std::nullopt;
  return IndexAt(row, *nearest);
}

std::optional<int> FretboardLayout::Nearest(int index, const std::vector<bool>& visible) const {
  const NotePlace& from = Note(index);
  for (int distance = 0; distance < rows_; ++distance) {
    for (const int row : {from.row - distance, from.row + distance}) {
      if (row < 1 || row > rows_) continue;
      if (const std::optional<int> found = NearestInRow(row, from.position, visible)) return found;
    }
  }
  return std::nullopt;
}

std::optional<int> FretboardLayout::Neighbour(int index, Move move, const std::vector<bool>& visible) const {
  const NotePlace& from = Note(index);
  if (move == Move::kUp || move == Move::kDown) {
    const int step = move == Move::kUp ? -1 : 1;
    for (int row = from.row + step; row >= 1 && row <= rows_; row += step) {
      if (const std::optional<int> found = NearestInRow(row, from.position, visible)) return found;
    }
    return std::nullopt;
  }
  const bool leftward = move == Move::kLeft || move == Move::kEnd;
  const bool fromEnd = move == Move::kHome || move == Move::kEnd;
  const int step = leftward ? -1 : 1;
  int position = from.position + step;
  if (fromEnd) position = move == Move::kHome ? 0 : positions_ - 1;
  for (; position >= 0 && position < positions_; position += step) {
    const int candidate = IndexAt(from.row, position);
    if (visible.at(static_cast<std::size_t>(candidate))) {
      return candidate == index ? std::nullopt : std::optional<int>(candidate);
    }
  }
  return std::nullopt;
}

}  // namespace tonalith::views
