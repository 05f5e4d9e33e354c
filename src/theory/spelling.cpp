// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/spelling.h"

#include <algorithm>
#include <climits>
#include <optional>

namespace tonalith::theory {
namespace {

constexpr std::size_t kMostNotesByDegree = 7;
constexpr int kMostUsesOfALetter = 2;

/// Tonics of flat keys; all others are written in sharps.
bool IsFlatTonic(NoteName tonic) {
  return tonic.Alteration() < 0 || (tonic.letter == Letter::kF && tonic.accidental == Accidental::kNatural);
}

NoteName SimpleName(PitchClass pitchClass, bool flat) { return flat ? FlatName(pitchClass) : SharpName(pitchClass); }

std::vector<NoteName> SpellByDegrees(NoteName tonic, const Formula& formula) {
  std::vector<NoteName> names;
  for (const Degree& degree : formula.Degrees()) {
    const std::optional<NoteName> name = degree.Above(tonic);
    names.push_back(name ? *name : SimpleName(tonic.PitchClass().Up(degree.Semitones()), degree.alteration < 0));
  }
  return names;
}

std::vector<NoteName> SpellChromatic(NoteName tonic, const Formula& formula) {
  std::vector<NoteName> names;
  for (const Degree& degree : formula.Degrees()) {
    const PitchClass pitchClass = tonic.PitchClass().Up(degree.Semitones());
    names.push_back(pitchClass == tonic.PitchClass() ? tonic : SimpleName(pitchClass, IsFlatTonic(tonic)));
  }
  return names;
}

/// Finds the spelling of many notes that ascends by letter and differs least from the formula.
class AscendingSpeller {
 public:
  AscendingSpeller(NoteName tonic, const Formula& formula) : tonic_(tonic), degrees_(formula.Degrees()) {
    std::ranges::sort(degrees_, {}, &Degree::PitchClass);
  }

  /// In ascending order of the pitch classes above the tonic.
  std::vector<NoteName> Search() {
    Continue(0, 0);
    return best_;
  }

 private:
  /// The letters from the tonic up to `name`; 7 for the tonic's letter at the top, -1 for the letter below the tonic.
  int StepsTo(NoteName name, int semitones) const {
    constexpr int kLow = 4;
    constexpr int kHigh = 8;
    const int steps = (static_cast<int>(name.letter) - static_cast<int>(tonic_.letter) + kLetters) % kLetters;
    if (steps == 0 && semitones >= kHigh) return kLetters;
    return steps == kLetters - 1 && semitones <= kLow ? -1 : steps;
  }

  int CostOf(NoteName name, const Degree& degree) const {
    constexpr int kOtherThanFormula = 10;
    constexpr int kWhiteKeyWithAccidental = 3;
    constexpr int kAgainstTheKey = 1;
    const bool white = SharpName(name.PitchClass()).accidental == Accidental::kNatural;
    const bool against = IsFlatTonic(tonic_) ? name.Alteration() > 0 : name.Alteration() < 0;
    return (degree.Above(tonic_) == name ? 0 : kOtherThanFormula) +
           (white && name.Alteration() != 0 ? kWhiteKeyWithAccidental : 0) + (against ? kAgainstTheKey : 0);
  }

  void Continue(int lastSteps, int cost) {
    if (cost >= bestCost_) return;
    if (names_.size() == degrees_.size()) {
      best_ = names_;
      bestCost_ = cost;
      return;
    }
    const Degree& degree = degrees_[names_.size()];
    const int semitones = degree.PitchClass().Semitones();
    if (semitones == 0) return Choose(tonic_, 0, cost);
    for (int letter = 0; letter < kLetters; ++letter) {
      const auto name = NoteName::At(static_cast<Letter>(letter), tonic_.PitchClass().Up(semitones));
      if (!name || std::abs(name->Alteration()) > 1) continue;
      const int steps = StepsTo(*name, semitones);
      const auto uses = std::ranges::count(names_, name->letter, &NoteName::letter);
      if (steps >= lastSteps && uses < kMostUsesOfALetter) Choose(*name, steps, cost + CostOf(*name, degree));
    }
  }

  void Choose(NoteName name, int steps, int cost) {
    names_.push_back(name);
    Continue(steps, cost);
    names_.pop_back();
  }

  NoteName tonic_;
  std::vector<Degree> degrees_;
  std::vector<NoteName> names_;
  std::vector<NoteName> best_;
  int bestCost_ = INT_MAX;
};

std::vector<NoteName> SpellMany(NoteName tonic, const Formula& formula) {
  const std::vector<NoteName> ascending = AscendingSpeller(tonic, formula).Search();
  // A tonic with two accidentals may leave no such spelling.
  if (ascending.empty()) return SpellByDegrees(tonic, formula);
  std::vector<NoteName> names;
  for (const Degree& degree : formula.Degrees()) {
    names.push_back(*std::ranges::find(ascending, tonic.PitchClass().Up(degree.Semitones()), &NoteName::PitchClass));
  }
  return names;
}

}  // namespace

std::vector<NoteName> Spell(NoteName tonic, const Formula& formula) {
  const std::size_t notes = formula.Degrees().size();
  if (notes == kSemitonesPerOctave) return SpellChromatic(tonic, formula);
  return notes > kMostNotesByDegree ? SpellMany(tonic, formula) : SpellByDegrees(tonic, formula);
}

}  // namespace tonalith::theory
