// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The geometry of a staff: the notes of a scale, their steps, columns and ledger lines, derived from a clef and the
// position of the top line. Lengths are twips of the form's client area, converted by TwipsToPixels. Pure functions and
// values, any thread.

#pragma once

#include <QtGlobal>
#include <cstdint>
#include <string>
#include <vector>

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
  /// The step of the C at which the key of C begins.
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

/// The key list: the key, then one element for each interval except the last, modulo 12. Throws failure 9 for an empty
/// interval list.
std::vector<std::int16_t> KeyList(std::int16_t key, const std::vector<std::int16_t>& intervals);

/// Iterates over a key list and returns names and steps. The steps rise by an octave at each passage from B to C.
class StaffWalk {
 public:
  explicit StaffWalk(const Clef& clef) : octaveOffset_(clef.stepOfC) {}

  /// Returns the name of the next element; Step returns its step. Throws failure 9 for an element outside -12..11.
  std::string NameOf(std::int16_t element);
  /// The step of the last element; a sharp is on the step of its natural.
  [[nodiscard]] int Step() const { return natural_ + octaveOffset_; }

 private:
  int octaveOffset_;
  std::int16_t natural_ = 0;
};

/// The steps of the ledger lines for a note on `step`, in drawing order.
std::vector<int> LedgerSteps(int step);

/// The x of the note in a column, counted from 0. Pixels.
std::int32_t ColumnX(int column);

}  // namespace tonalith::views
