// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The geometry of the staff: which notes a scale writes, on which step, in which column, with which ledger lines.
// Numbers in, numbers out; every length in twips of the form's client area, every pixel through TwipsToPixels. Pure
// functions; they throw failure 9 where their line says so.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/twips.h"
#include "core/note_model.h"

namespace tonalith::views {

namespace staff {
inline constexpr controls::Twips kTopLine{1850};
inline constexpr controls::Twips kBottomLine{2450};
inline constexpr controls::Twips kLineSpacing{150};
inline constexpr controls::Twips kStep{75};
inline constexpr int kLines = 5;
inline constexpr controls::Twips kLeft{11150};
inline constexpr controls::Twips kRight{15500};
inline constexpr controls::Twips kClefX{11500};
inline constexpr controls::Twips kClefY{1550};
inline constexpr controls::Twips kFirstColumn{11950};
inline constexpr controls::Twips kColumnStep{275};
inline constexpr controls::Twips kLedgerBefore{50};
inline constexpr controls::Twips kLedgerAfter{250};
inline constexpr controls::Twips kNudge{5};
inline constexpr std::int32_t kGlyphOffset = -650;
inline constexpr double kFontPoints = 24;
}  // namespace staff

/// The key list: the key, then one element for each interval but the last, wrapped at the octave. Throws failure 9 for
/// an empty interval list.
std::vector<std::int16_t> KeyList(std::int16_t key, const std::vector<std::int16_t>& intervals);

/// Walks a key list: names, and steps that climb an octave at each passage from B to C.
class StaffWalk {
 public:
  /// The name of the next element; the step follows from StepOf. Throws failure 9 for an element outside -12..11.
  std::string NameOf(std::int16_t element);
  /// The step of the element that was named last.
  [[nodiscard]] int Step() const;

 private:
  std::int16_t number_ = 0;
  int octaveOffset_ = 0;
  std::int16_t previousNatural_ = -999;
};

/// The steps of the ledger lines that a note on `step` needs, in the order in which they are drawn.
std::vector<int> LedgerSteps(int step);

std::int32_t LineY(int line);
std::int32_t ColumnX(int column);
/// The y of a step's middle, and the y at which its glyph is printed with a glyph cell `textHeight` pixels high.
std::int32_t StepY(int step);
std::int32_t GlyphY(int step, std::int32_t textHeight);

}  // namespace tonalith::views
