// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/box.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tonalith::instrument {
namespace {

bool IsBetter(const Box& a, const Box& b) {
  return std::tuple(a.stretch, a.Unevenness(), a.Spans()) < std::tuple(b.stretch, b.Unevenness(), b.Spans());
}

}  // namespace

int Box::Notes() const {
  int notes = 0;
  for (const auto& string : frets) notes += static_cast<int>(string.size());
  return notes;
}

int Box::Unevenness() const {
  int squares = 0;
  for (const auto& string : frets) squares += static_cast<int>(string.size() * string.size());
  return squares;
}

int Box::Spans() const {
  int spans = 0;
  for (const auto& string : frets) spans += string.empty() ? 0 : string.back() - string.front();
  return spans;
}

BoxBuilder::BoxBuilder(std::vector<int> open, theory::PitchClassSet notes, int lowest, int highest)
    : open_(std::move(open)), notes_(notes), lowest_(lowest), highest_(highest) {}

std::optional<Box> BoxBuilder::At(int hand, SamePitch samePitch) const {
  if (open_.empty() || hand < lowest_ || hand + kHandFrets - 1 > highest_) return std::nullopt;
  for (int frets = 0; frets <= kMostStretch; ++frets) {
    std::optional<Box> best;
    // Of equally good boxes, the one that stretches upwards.
    for (int up = frets; up >= 0; --up) {
      auto box = With(hand, {frets - up, up}, samePitch);
      if (box && (!best || IsBetter(*box, *best))) best = std::move(box);
    }
    if (best) return best;
  }
  return std::nullopt;
}

std::optional<Box> BoxBuilder::With(int hand, Reach reach, SamePitch samePitch) const {
  if (hand - reach.down < lowest_ || hand + kHandFrets - 1 + reach.up > highest_) return std::nullopt;
  Box box{hand, 0, std::vector<std::vector<int>>(open_.size())};
  AddHand(box, samePitch);
  for (std::size_t lower = 0; lower + 1 < open_.size(); ++lower) {
    if (!FillGap(box, lower, reach)) return std::nullopt;
  }
  AddOuterNotes(box, reach);
  for (auto& string : box.frets) std::sort(string.begin(), string.end());
  return box;
}

/// The notes in the hand, each on one string.
void BoxBuilder::AddHand(Box& box, SamePitch samePitch) const {
  for (std::size_t i = 0; i < open_.size(); ++i) {
    int first = open_[i] + box.hand;
    int last = first + kHandFrets - 1;
    if (samePitch == SamePitch::kOnHigherString && i + 1 < open_.size()) {
      last = std::min(last, open_[i + 1] + box.hand - 1);
    } else if (samePitch == SamePitch::kOnLowerString && i > 0) {
      first = std::max(first, open_[i - 1] + box.hand + kHandFrets);
    }
    for (int pitch = first; pitch <= last; ++pitch) {
      if (IsInScale(pitch)) box.frets[i].push_back(pitch - open_[i]);
    }
  }
}

/// Adds the notes between the hand on a string and the hand on the next one, each to the nearer string. False if a note
/// is out of reach.
bool BoxBuilder::FillGap(Box& box, std::size_t lower, Reach reach) const {
  const int below = open_[lower] + box.hand + kHandFrets - 1;
  const int above = open_[lower + 1] + box.hand;
  for (int pitch = below + 1; pitch < above; ++pitch) {
    if (!IsInScale(pitch)) continue;
    const int up = pitch - below;
    const int down = above - pitch;
    const bool canUp = up <= reach.up;
    const bool canDown = down <= reach.down;
    if (!canUp && !canDown) return false;
    const bool isUp = canUp && (!canDown || up <= down);
    const std::size_t string = isUp ? lower : lower + 1;
    box.frets[string].push_back(pitch - open_[string]);
    box.stretch += isUp ? up : down;
  }
  return true;
}

/// A hand that stretches takes the notes in its reach on the outer strings, too.
void BoxBuilder::AddOuterNotes(Box& box, Reach reach) const {
  const int top = box.hand + kHandFrets - 1;
  for (int fret = box.hand - reach.down; fret < box.hand; ++fret) {
    if (IsInScale(open_.front() + fret)) box.frets.front().push_back(fret);
  }
  for (int fret = top + 1; fret <= top + reach.up; ++fret) {
    if (IsInScale(open_.back() + fret)) box.frets.back().push_back(fret);
  }
}

}  // namespace tonalith::instrument
