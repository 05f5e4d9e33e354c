// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/staff_layout.h"

#include <array>
#include <cstddef>

#include "core/failure.h"

namespace tonalith::views {
namespace {

using controls::Twips;
using controls::TwipsToPixels;

/// Staff steps above the bottom line (E); a sharp stands on the step of its natural.
constexpr std::array<int, 12> kDiatonicOffsets = {-2, -2, -1, -1, 0, 1, 1, 2, 2, 3, 3, 4};
/// The natural that a note is written on.
constexpr std::array<std::int16_t, 12> kNaturals = {0, 0, 2, 2, 4, 5, 5, 7, 7, 9, 9, 11};
constexpr int kStepsPerOctave = 7;
constexpr int kTopLineStep = 8;

template <std::size_t Size, class Entry>
Entry At(const std::array<Entry, Size>& table, std::int16_t number) {
  if (number < 0 || static_cast<std::size_t>(number) >= Size) throw core::Failure::SubscriptOutOfRange();
  return table[static_cast<std::size_t>(number)];
}

}  // namespace

std::vector<std::int16_t> KeyList(std::int16_t key, const std::vector<std::int16_t>& intervals) {
  if (intervals.empty()) throw core::Failure::SubscriptOutOfRange();
  std::vector<std::int16_t> keys{key};
  for (std::size_t k = 0; k + 1 < intervals.size(); ++k) {
    keys.push_back(static_cast<std::int16_t>((keys.back() + intervals[k]) % 12));
  }
  return keys;
}

std::string StaffWalk::NameOf(std::int16_t element) {
  number_ = static_cast<std::int16_t>((element + 12) % 12);
  std::string name = core::CNumberToScore(number_);
  const std::int16_t natural = core::NaturalIndex(number_);
  if (natural < previousNatural_) octaveOffset_ += kStepsPerOctave;
  previousNatural_ = natural;
  return name;
}

int StaffWalk::Step() const { return At(kDiatonicOffsets, At(kNaturals, number_)) + octaveOffset_; }

std::vector<int> LedgerSteps(int step) {
  std::vector<int> steps;
  for (int below = -2; below >= step; below -= 2) steps.push_back(below);
  for (int above = kTopLineStep + 2; above <= step; above += 2) steps.push_back(above);
  return steps;
}

std::int32_t LineY(int line) { return TwipsToPixels(staff::kTopLine + staff::kLineSpacing * line); }
std::int32_t ColumnX(int column) { return TwipsToPixels(staff::kFirstColumn + staff::kColumnStep * column); }
std::int32_t StepY(int step) { return TwipsToPixels(staff::kBottomLine - staff::kStep * step); }

std::int32_t GlyphY(int step, std::int32_t textHeight) {
  const Twips offset{staff::kGlyphOffset - textHeight / 2};
  return TwipsToPixels(staff::kBottomLine - staff::kStep * step + offset);
}

}  // namespace tonalith::views
