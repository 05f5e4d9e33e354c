// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The geometry of a staff: which notes a scale writes, on which step, in which column, with which ledger lines. A clef
// and the place of the top line make a staff; all else follows from them. Numbers in, numbers out; every length in
// twips of the form's client area, every pixel through TwipsToPixels. Plain values and pure functions, any thread; they
// throw failure 9 where their line says so.

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
/// How far above the line that it names a clef is printed.
inline constexpr paint::Twips kClefRise{750};
inline constexpr std::int32_t kGlyphOffset = -650;
inline constexpr double kFontPoints = 24;
}  // namespace staff

/// Steps are counted from the bottom line, one for each line and space.
struct Clef {
  /// What assistive technology calls it.
  const char* name;
  /// Its code in the music font.
  char glyph;
  /// The step of the line that it names.
  int line;
  /// The step of the C on which the key of C begins.
  int stepOfC;
};

/// Its sign curls round the line of the G.
inline constexpr Clef kTreble{QT_TRANSLATE_NOOP("tonalith::views::StaffView", "Treble clef"), paint::kTrebleClef, 2,
                              -2};

struct Staff {
  Clef clef;
  paint::Twips topLine;

  /// Lines are counted from the top, from 0. Pixels.
  [[nodiscard]] std::int32_t LineY(int line) const;
  /// Where the clef is printed.
  [[nodiscard]] std::int32_t ClefY() const;
  /// The y of a step's middle, and the y at which its glyph is printed with a glyph cell `textHeight` pixels high.
  [[nodiscard]] std::int32_t StepY(int step) const;
  [[nodiscard]] std::int32_t GlyphY(int step, std::int32_t textHeight) const;

 private:
  [[nodiscard]] paint::Twips At(int step) const;
};

/// The staff of the main window.
inline constexpr Staff kTrebleStaff{kTreble, paint::Twips{1850}};

/// The key list: the key, then one element for each interval but the last, wrapped at the octave. Throws failure 9 for
/// an empty interval list.
std::vector<std::int16_t> KeyList(std::int16_t key, const std::vector<std::int16_t>& intervals);

/// Walks a key list: names, and steps that climb an octave at each passage from B to C.
class StaffWalk {
 public:
  explicit StaffWalk(const Clef& clef) : octaveOffset_(clef.stepOfC) {}

  /// The name of the next element; Step gives its step. Throws failure 9 for an element outside -12..11.
  std::string NameOf(std::int16_t element);
  /// The step of the element that was named last; a sharp stands on the step of its natural.
  [[nodiscard]] int Step() const { return natural_ + octaveOffset_; }

 private:
  int octaveOffset_;
  std::int16_t natural_ = 0;
};

/// The steps of the ledger lines that a note on `step` needs, in the order in which they are drawn.
std::vector<int> LedgerSteps(int step);

/// Where the note of a column is printed, from 0; pixels.
std::int32_t ColumnX(int column);

}  // namespace tonalith::views
