// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <vector>

#include "theory/spelling.h"

namespace tonalith::theory {
namespace {

/// Finds the cheapest degrees whose numbers ascend with the notes.
class DegreeSearch {
 public:
  /// `mostUses`: how many notes may have the same number.
  DegreeSearch(PitchClassSet pattern, int mostUses, int mostAccidentals)
      : pattern_(pattern), notes_(pattern.Members()), mostUses_(mostUses), mostAccidentals_(mostAccidentals) {}

  /// Empty if there is no solution.
  std::vector<Degree> Search() {
    Continue(0);
    return best_;
  }

 private:
  /// Lower is more common. The augmented fourth and the diminished fifth depend on the third, as in Lydian and blues
  /// scales; the augmented fifth replaces a missing fifth above a major third.
  int CostOf(Degree degree) const {
    constexpr std::array<int, kLetters> kFlat = {99, 2, 2, 8, 4, 2, 2};
    constexpr std::array<int, kLetters> kSharp = {99, 6, 12, 4, 5, 10, 99};
    constexpr int kDouble = 16;
    constexpr int kDiminishedSeventh = 8;
    constexpr int kPreferred = 3;
    const bool minor = pattern_.Contains(PitchClass(3)) && !pattern_.Contains(PitchClass(4));
    if (degree == Degree{5, -1} && minor) return kPreferred;
    if (degree == Degree{4, 1} && !minor) return kPreferred;
    if (degree == Degree{5, 1} && pattern_.Contains(PitchClass(4)) && !pattern_.Contains(PitchClass(7))) return 1;
    if (degree == Degree{7, -2}) return kDiminishedSeventh;
    const auto index = static_cast<std::size_t>(degree.number - 1);
    if (degree.alteration == 0) return 0;
    if (std::abs(degree.alteration) == 2) return kDouble;
    return degree.alteration < 0 ? kFlat[index] : kSharp[index];
  }

  void Continue(int cost) {
    if (cost >= bestCost_) return;
    if (chosen_.size() == notes_.size()) {
      best_ = chosen_;
      bestCost_ = cost;
      return;
    }
    const PitchClass note = notes_[chosen_.size()];
    const int lowest = chosen_.empty() ? 1 : chosen_.back().number;
    for (int number = lowest; number <= kLetters; ++number) {
      for (int alteration = -mostAccidentals_; alteration <= mostAccidentals_; ++alteration) {
        const Degree degree{number, alteration};
        // The tonic is 1, and no other note is a changed tonic; nor does a degree leave the octave.
        if (degree.Semitones() != note.Semitones() || (number == 1 && alteration != 0)) continue;
        Choose(degree, cost);
      }
    }
  }

  void Choose(Degree degree, int cost) {
    constexpr int kSameNumber = 5;
    const auto uses = std::ranges::count(chosen_, degree.number, &Degree::number);
    if (uses >= mostUses_) return;
    if (degree.PitchClass() == PitchClass(0) && degree.number != 1) return;
    chosen_.push_back(degree);
    Continue(cost + CostOf(degree) + (uses > 0 ? kSameNumber : 0));
    chosen_.pop_back();
  }

  PitchClassSet pattern_;
  std::vector<PitchClass> notes_;
  int mostUses_;
  int mostAccidentals_;
  std::vector<Degree> chosen_;
  std::vector<Degree> best_;
  int bestCost_ = INT_MAX;
};

/// Collects the degrees of a chord; each note is used once.
class ChordReader {
 public:
  explicit ChordReader(PitchClassSet pattern) : left_(pattern) {}

  Formula Read() {
    Use(0, {1, 0});
    const bool third = Use(4, {3, 0}) || Use(3, {3, -1});
    const bool minor = third && degrees_.back().alteration < 0;
    const bool suspended = !third && Use(5, {4, 0});
    const bool fifth = Use(7, {5, 0});
    const bool flatFifth = !fifth && Use(6, {5, -1});
    const bool seventh = Use(10, {7, -1});
    const bool majorSeventh = Use(11, {7, 0});
    if (!fifth && (!minor || !flatFifth || seventh || majorSeventh)) Use(8, {5, 1});
    if (!seventh && !majorSeventh) Use(9, minor && flatFifth ? Degree{7, -2} : Degree{6, 0});
    if (!third && !(suspended && (seventh || majorSeventh))) Use(2, {2, 0});
    for (const Degree degree : {Degree{9, -1}, {9, 0}, {9, 1}, {11, 0}, {11, 1}, {13, -1}, {13, 0}}) {
      Use(degree.PitchClass().Semitones(), degree);
    }
    std::ranges::sort(degrees_);
    return Formula(degrees_);
  }

 private:
  bool Use(int semitones, Degree degree) {
    if (!left_.Contains(PitchClass(semitones))) return false;
    left_.Remove(PitchClass(semitones));
    degrees_.push_back(degree);
    return true;
  }

  PitchClassSet left_;
  std::vector<Degree> degrees_;
};

}  // namespace

Formula DeriveScaleFormula(PitchClassSet pattern) {
  constexpr int kDoubleAccidentals = 2;
  if (pattern.Size() == kLetters) {
    const std::vector<Degree> each = DegreeSearch(pattern, 1, kDoubleAccidentals).Search();
    if (!each.empty()) return Formula(each);
  }
  if (pattern.Size() < kLetters) {
    const std::vector<Degree> few = DegreeSearch(pattern, 2, kDoubleAccidentals).Search();
    if (!few.empty()) return Formula(few);
  }
  return Formula(DegreeSearch(pattern, 2, 1).Search());
}

Formula DeriveChordFormula(PitchClassSet pattern) { return ChordReader(pattern).Read(); }

}  // namespace tonalith::theory
