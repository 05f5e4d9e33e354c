// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/staff_layout.h"

#include <algorithm>

#include "core/failure.h"
#include "core/field_limits.h"
#include "core/note_model.h"

namespace tonalith::views {
namespace {

using paint::Twips;
using paint::TwipsToPixels;

constexpr int kStepsPerOctave = 7;
constexpr int kSemitonesPerOctave = 12;
constexpr int kTopLineStep = 2 * (staff::kLines - 1);

}  // namespace

core::NoteNumber StaffKey(std::int16_t keyIndex) {
  const int key = (keyIndex + kSemitonesPerOctave) % kSemitonesPerOctave;
  if (key < 0) throw core::Failure::SubscriptOutOfRange();
  return static_cast<core::NoteNumber>(key);
}

std::span<const core::ScaleNote> StaffNotes(const core::Scale& scale) {
  if (scale.size() < 2) throw core::Failure::SubscriptOutOfRange();
  // Kept: see docs/behaviour.md, The staff omits the closing octave
  // No valid scale has more notes. Those of a damaged one would exceed the card by far.
  return std::span(scale).first(std::min(scale.size() - 1, core::kMostPatternDigits));
}

int StepOf(const Clef& clef, const core::ScaleNote& note) {
  return clef.stepOfC + kStepsPerOctave * (note.pitch.Octave() - core::kStartOctave) +
         core::NaturalIndex(note.pitchClass);
}

std::vector<int> LedgerSteps(int step) {
  std::vector<int> steps;
  for (int below = -2; below >= step; below -= 2) steps.push_back(below);
  for (int above = kTopLineStep + 2; above <= step; above += 2) steps.push_back(above);
  return steps;
}

std::int32_t ColumnX(int column) { return TwipsToPixels(staff::kFirstColumn + staff::kColumnStep * column); }

Twips Staff::At(int step) const { return topLine + staff::kStep * (kTopLineStep - step); }

std::int32_t Staff::LineY(int line) const { return TwipsToPixels(topLine + staff::kLineSpacing * line); }
std::int32_t Staff::ClefY() const { return TwipsToPixels(At(clef.line) - staff::kClefRise); }
std::int32_t Staff::StepY(int step) const { return TwipsToPixels(At(step)); }

std::int32_t Staff::GlyphY(int step, std::int32_t textHeight) const {
  // Kept: see docs/behaviour.md, Pixels used as twips
  return TwipsToPixels(At(step) + Twips{staff::kGlyphOffset - textHeight / 2});
}

}  // namespace tonalith::views
