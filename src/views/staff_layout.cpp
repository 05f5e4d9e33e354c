// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/staff_layout.h"

#include "core/failure.h"
#include "core/note_model.h"

namespace tonalith::views {
namespace {

using paint::Twips;
using paint::TwipsToPixels;

constexpr int kStepsPerOctave = 7;
constexpr int kTopLineStep = 2 * (staff::kLines - 1);

}  // namespace

std::vector<std::int16_t> KeyList(std::int16_t key, const std::vector<std::int16_t>& intervals) {
  if (intervals.empty()) throw core::Failure::SubscriptOutOfRange();
  std::vector<std::int16_t> keys{key};
  // Kept: see docs/behaviour.md, The staff omits the closing octave
  for (std::size_t k = 0; k + 1 < intervals.size(); ++k) {
    keys.push_back(static_cast<std::int16_t>((keys.back() + intervals[k]) % 12));
  }
  return keys;
}

std::string StaffWalk::NameOf(std::int16_t element) {
  const auto number = static_cast<std::int16_t>((element + 12) % 12);
  std::string name = core::CNumberToScore(number);
  const std::int16_t natural = core::NaturalIndex(number);
  if (natural < natural_) octaveOffset_ += kStepsPerOctave;
  natural_ = natural;
  return name;
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
