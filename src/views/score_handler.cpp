// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/score_handler.h"

#include <span>

#include "views/staff_layout.h"

namespace tonalith::views {
namespace {

using paint::DrawingSurface;
using paint::TwipsToPixels;

void DrawStaffLines(DrawingSurface& target, const Staff& on) {
  for (int line = 0; line < staff::kLines; ++line) {
    const std::int32_t y = on.LineY(line);
    target.Line(TwipsToPixels(staff::kLeft), y, TwipsToPixels(staff::kRight), y);
  }
}

void DrawClef(DrawingSurface& target, const Staff& on) {
  target.SetFontName(std::string(paint::kMusicFontName));
  target.SetFontSize(paint::Points(staff::kFontPoints));
  target.SetFontBold(false);
  target.SetCurrentX(TwipsToPixels(staff::kClefX));
  target.SetCurrentY(on.ClefY());
  target.Print(std::string(1, on.clef.glyph));
}

void DrawLedgerLines(DrawingSurface& target, const Staff& on, int step, std::int32_t x) {
  for (const int ledger : LedgerSteps(step)) {
    const std::int32_t y = on.StepY(ledger);
    target.Line(x - TwipsToPixels(staff::kLedgerBefore), y, x + TwipsToPixels(staff::kLedgerAfter), y);
  }
}

void DrawNote(DrawingSurface& target, const std::string& name, std::int32_t x, std::int32_t y) {
  std::string glyphs(1, paint::kWholeNote);
  target.SetCurrentX(x);
  // Kept: see docs/behaviour.md, A nudge of no pixel
  target.SetCurrentY(y - TwipsToPixels(staff::kNudge));
  if (name.back() == '#') {
    target.SetCurrentX(x);
    target.SetCurrentY(y + TwipsToPixels(staff::kNudge));
    // Kept: see docs/behaviour.md, The sharp follows its note in the text
    glyphs += paint::kSharp;
  }
  target.Print(glyphs);
}

}  // namespace

void ScoreHandler(DrawingSurface* scoreTarget, const core::Scale& scale, std::string& scaleNotes) {
  if (scoreTarget == nullptr) return;
  DrawingSurface& target = *scoreTarget;
  target.SetScaleMode(paint::ScaleMode::kPixels);
  target.Cls();
  const std::span<const core::ScaleNote> notes = StaffNotes(scale);
  const Staff& on = kTrebleStaff;
  DrawStaffLines(target, on);
  DrawClef(target, on);
  const auto textHeight = static_cast<std::int32_t>(target.TextHeight(std::string(1, paint::kWholeNote)));
  scaleNotes.clear();
  int column = 0;
  for (const core::ScaleNote& note : notes) {
    const int step = StepOf(on.clef, note);
    const std::string name(NameOf(note));
    scaleNotes += " " + name;
    const std::int32_t x = ColumnX(column);
    DrawLedgerLines(target, on, step, x);
    DrawNote(target, name, x, on.GlyphY(step, textHeight));
    ++column;
  }
}

}  // namespace tonalith::views
