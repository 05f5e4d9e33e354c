// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The geometry of a staff: the notes of a scale, their steps, columns and ledger lines, derived from a clef and the
// position of the top line. Lengths are twips of the form's client area, converted by TwipsToPixels. Pure functions and
// values, any thread.

#pragma once

#include <QtGlobal>
#include <cstdint>
#include <span>
#include <vector>

#include "core/scale.h"
#include "paint/music_codes.h"
#include "paint/twips.h"

namespace tonalith::views {

namespace staff {
inline constexpr paint::Twips kLineSpacing{150};
inline constexpr paint::Twips kStep{75};
inline constexpr int kLines = 5;
inline constexpr paint::Twips kLeft{11150};
inline constexpr paint::Twips kRight{15500};
inline constexpr paint::Twips kClefX{11500};
inline constexpr paint::Twips kFirstColumn{11950};
inline constexpr paint::Twips kColumnStep{275};
inline constexpr paint::Twips kLedgerBefore{50};
inline constexpr paint::Twips kLedgerAfter{250};
inline constexpr paint::Twips kNudge{5};
/// Distance from the clef's line up to the position at which the clef is printed.
inline constexpr paint::Twips kClefRise{750};
inline constexpr std::int32_t kGlyphOffset = -650;
inline constexpr double kFontPoints = 24;
}  // namespace staff

/// Steps are counted from the bottom line, one for each line and space.
struct Clef {
  /// The accessible name.
  const char* name;
  /// The code in the music font.
  char glyph;
  /// The step of the line whose note the clef defines.
  int line;
  /// The step of C4, at which the key of C begins.
  int stepOfC;
};

/// The glyph curls around the line of the G.
inline constexpr Clef kTreble{QT_TRANSLATE_NOOP("tonalith::views::StaffView", "Treble clef"), paint::kTrebleClef, 2,
                              -2};

struct Staff {
  Clef clef;
  paint::Twips topLine;

  /// The y of a line, counted from 0 at the top. Pixels.
  [[nodiscard]] std::int32_t LineY(int line) const;
  /// The y at which the clef is printed.
  [[nodiscard]] std::int32_t ClefY() const;
  /// The y of the centre of a step, and the y at which its glyph is printed if a glyph cell is `textHeight` pixels
  /// high.
  [[nodiscard]] std::int32_t StepY(int step) const;
  [[nodiscard]] std::int32_t GlyphY(int step, std::int32_t textHeight) const;

 private:
  [[nodiscard]] paint::Twips At(int step) const;
};

/// The staff of the main window.
inline constexpr Staff kTrebleStaff{kTreble, paint::Twips{1850}};

/// The start note for an entry of the key box: the entry modulo 12 from -12 on, so -1 is B. Throws failure 9 below -12.
core::NoteNumber StaffKey(std::int16_t keyIndex);

/// The notes that a staff shows: all but the closing one, and at most core::kMostPatternDigits. Throws failure 9 for a
/// scale without intervals.
std::span<const core::ScaleNote> StaffNotes(const core::Scale& scale);

/// The step of a note; a sharp is on the step of its natural. Throws failure 9 for a pitch class outside 0..11.
int StepOf(const Clef& clef, const core::ScaleNote& note);

/// The steps of the ledger lines for a note on `step`, in drawing order.
std::vector<int> LedgerSteps(int step);

/// The x of the note in a column, counted from 0. Pixels.
std::int32_t ColumnX(int column);

}  // namespace tonalith::views
