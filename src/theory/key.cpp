// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/key.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "theory/spelling.h"

namespace tonalith::theory {
namespace {

constexpr PitchClassSet kMajor{0, 2, 4, 5, 7, 9, 11};
constexpr PitchClassSet kMajorPentatonic{0, 2, 4, 7, 9};
constexpr PitchClassSet kHarmonicMinor{0, 2, 3, 5, 7, 8, 11};
constexpr PitchClassSet kMelodicMinor{0, 2, 3, 5, 7, 9, 11};
constexpr int kMinorFifths = -3;
constexpr int kPentatonicNotes = 5;

/// A mode of the major scale: its tonic is `semitones` above that of its parent, its signature differs by `fifths` from
/// that of the major key on its own tonic. In order of preference.
struct Mode {
  int semitones = 0;
  int fifths = 0;
};
constexpr std::array<Mode, kLetters> kModes = {{{0, 0}, {9, -3}, {2, -2}, {7, -1}, {5, 1}, {4, -4}, {11, -5}}};

std::optional<int> ModeFifths(PitchClassSet pattern, PitchClassSet parent) {
  for (const Mode& mode : kModes) {
    if (parent.Contains(PitchClass(mode.semitones)) && parent.From(PitchClass(mode.semitones)) == pattern) {
      return mode.fifths;
    }
  }
  return std::nullopt;
}

std::optional<int> PentatonicFifths(PitchClassSet pattern) {
  if (const std::optional<int> fifths = ModeFifths(pattern, kMajorPentatonic)) return fifths;
  for (const Mode& mode : kModes) {
    if (kMajor.From(PitchClass(mode.semitones)).Contains(pattern)) return mode.fifths;
  }
  if (kHarmonicMinor.Contains(pattern) || kMelodicMinor.Contains(pattern)) return kMinorFifths;
  return std::nullopt;
}

std::optional<int> FifthsFromMajor(PitchClassSet pattern) {
  if (pattern == kHarmonicMinor || pattern == kMelodicMinor) return kMinorFifths;
  if (pattern.Size() == kLetters) return ModeFifths(pattern, kMajor);
  if (pattern.Size() == kPentatonicNotes && pattern.Contains(PitchClass(0))) return PentatonicFifths(pattern);
  return std::nullopt;
}

/// Decides between names with equally many accidentals: 0 precedes.
int ReadingOrder(NoteName tonic) {
  constexpr NoteName kFSharp{Letter::kF, Accidental::kSharp};
  if (tonic.accidental == Accidental::kNatural) return 0;
  const bool usual =
      tonic.PitchClass() == kFSharp.PitchClass() ? tonic == kFSharp : tonic.accidental == Accidental::kFlat;
  return usual ? 1 : 2;
}

}  // namespace

int FifthsOf(NoteName note) {
  constexpr std::array<int, kLetters> kLetterFifths = {0, 2, 4, -1, 1, 3, 5};
  return kLetterFifths[static_cast<std::size_t>(note.letter)] + kLetters * note.Alteration();
}

std::optional<int> TheoreticalSignature(NoteName tonic, PitchClassSet pattern) {
  const std::optional<int> fifths = FifthsFromMajor(pattern);
  if (!fifths) return std::nullopt;
  return FifthsOf(tonic) + *fifths;
}

int AccidentalCount(NoteName tonic, const Formula& formula, SetKind kind) {
  if (kind == SetKind::kScale) {
    if (const std::optional<int> signature = TheoreticalSignature(tonic, formula.Set())) return std::abs(*signature);
  }
  int count = 0;
  for (const NoteName note : Spell(tonic, formula)) count += std::abs(note.Alteration());
  return count;
}

NoteName ConventionalTonic(PitchClass tonic, const Formula& formula, SetKind kind) {
  const auto effort = [&](NoteName name) {
    return std::pair(AccidentalCount(name, formula, kind), ReadingOrder(name));
  };
  std::optional<NoteName> best;
  for (const NoteName name : kTonics) {
    if (name.PitchClass() == tonic && (!best || effort(name) < effort(*best))) best = name;
  }
  return *best;
}

std::optional<NoteName> EnharmonicTonic(NoteName tonic) {
  const auto found = std::ranges::find_if(
      kTonics, [&](NoteName other) { return other != tonic && other.PitchClass() == tonic.PitchClass(); });
  return found == kTonics.end() ? std::nullopt : std::optional(*found);
}

Key KeyOf(NoteName tonic, const Formula& formula, SetKind kind) {
  Key key{tonic, std::nullopt, std::nullopt};
  if (kind == SetKind::kScale) key.signature = TheoreticalSignature(tonic, formula.Set());
  const int count = AccidentalCount(tonic, formula, kind);
  if (count <= kMostSignatureAccidentals) return key;
  key.signature.reset();
  const NoteName conventional = ConventionalTonic(tonic.PitchClass(), formula, kind);
  if (conventional != tonic && AccidentalCount(conventional, formula, kind) < count) key.alternative = conventional;
  return key;
}

}  // namespace tonalith::theory
