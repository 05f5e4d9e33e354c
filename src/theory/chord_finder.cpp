// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/chord_finder.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <tuple>

#include "theory/chord_symbol.h"
#include "theory/key.h"

namespace tonalith::theory {
namespace {

/// A name before it is spelled.
struct Candidate {
  PitchClass root;
  const ChordType* type = nullptr;
  ChordGroup group = ChordGroup::kNearest;
  /// The order within the group, before the number of missing notes.
  int order = 0;
  PitchClassSet missing;
  PitchClassSet added;
};

constexpr PitchClassSet kSuspendedSeventh{0, 5, 7, 10};
constexpr PitchClassSet kPowerChord{0, 7};

std::pair<ChordGroup, int> GroupOf(const ChordMatch& match, bool onRoot) {
  const bool fifthMissing = match.missing.Contains(PitchClass(7));
  const ChordFamily family = match.type->family;
  if (fifthMissing) return onRoot ? std::pair(ChordGroup::kFifthOmitted, 0) : std::pair(ChordGroup::kRare, 3);
  switch (family) {
    case ChordFamily::kTriad:
      return {onRoot ? ChordGroup::kRootPosition : ChordGroup::kInvertedTriad, 0};
    case ChordFamily::kSeventh:
      return {onRoot ? ChordGroup::kRootPosition : ChordGroup::kInvertedSeventh, 0};
    case ChordFamily::kCommon:
      return {onRoot ? ChordGroup::kCommonOnRoot : ChordGroup::kRare, 0};
    case ChordFamily::kEqualNotes:
      if (onRoot) return {ChordGroup::kEqualNotes, 0};
      // The notes of an inverted 7sus4 are known as other chords on the bass, such as an eleventh without its fifth.
      if (match.type->formula.Set() == kSuspendedSeventh) return {ChordGroup::kRare, 0};
      return {ChordGroup::kInvertedSeventh, 1};
    case ChordFamily::kRare:
      break;
  }
  return {ChordGroup::kRare, onRoot ? 1 : 2};
}

void AddExact(const Sounding& sounding, std::vector<Candidate>& candidates) {
  for (const PitchClass root : sounding.notes.Members()) {
    for (const ChordMatch& match : ChordsWithNotes(sounding.notes.From(root))) {
      const auto [group, order] = GroupOf(match, root == sounding.bass);
      candidates.push_back({root, match.type, group, order, match.missing, {}});
    }
  }
}

void AddForeignBass(const Sounding& sounding, std::vector<Candidate>& candidates) {
  PitchClassSet above = sounding.notes;
  above.Remove(sounding.bass);
  for (const PitchClass root : above.Members()) {
    for (const ChordMatch& match : ChordsWithNotes(above.From(root))) {
      const bool triad = match.type->family == ChordFamily::kTriad && match.type->formula.Degrees().size() == 3;
      const bool plain = triad && match.type->formula.Set().Contains(PitchClass(7));
      if (!match.missing.IsEmpty() || !(triad || match.type->family == ChordFamily::kSeventh)) continue;
      const int order = plain ? 0 : triad ? 1 : 2;
      candidates.push_back({root, match.type, ChordGroup::kForeignBass, order, {}, {}});
    }
  }
}

/// How far a type is from the notes. A wrong note counts more than a missing one, a fifth less.
int DistanceOf(PitchClassSet missing, PitchClassSet added, bool onRoot) {
  constexpr int kAdded = 3;
  constexpr int kMissing = 2;
  constexpr int kInverted = 4;
  return kAdded * added.Size() + kMissing * missing.Size() - (missing.Contains(PitchClass(7)) ? 1 : 0) +
         (onRoot ? 0 : kInverted);
}

/// Names that have not exactly these notes, the nearest ones.
void AddNearest(const Sounding& sounding, std::vector<Candidate>& candidates) {
  constexpr int kWorstAboveBest = 3;
  int best = INT_MAX - kWorstAboveBest;
  for (const PitchClass root : sounding.notes.Members()) {
    const PitchClassSet pattern = sounding.notes.From(root);
    for (const ChordType& type : ChordTypes()) {
      const PitchClassSet chord = type.formula.Set();
      if (type.family == ChordFamily::kRare || chord == kPowerChord) continue;
      PitchClassSet added = pattern - chord;
      // The bass is in the symbol.
      added.Remove(PitchClass(root.SemitonesUpTo(sounding.bass)));
      const int distance = DistanceOf(chord - pattern, added, root == sounding.bass);
      if (distance > best + kWorstAboveBest) continue;
      best = std::min(best, distance);
      candidates.push_back({root, &type, ChordGroup::kNearest, distance, chord - pattern, added});
    }
  }
  std::erase_if(candidates, [best](const Candidate& candidate) { return candidate.order > best + kWorstAboveBest; });
}

/// Spells the candidates for one answer.
class Speller {
 public:
  explicit Speller(const Sounding& sounding) : sounding_(sounding) {}

  ChordName Spelled(const Candidate& candidate) const {
    ChordName name;
    name.type = candidate.type;
    name.group = candidate.group;
    name.root = RootOf(candidate);
    if (candidate.root != sounding_.bass) name.bass = BassOf(candidate, name.root);
    for (const PitchClass note : candidate.missing.Members()) {
      name.missing.push_back(NoteIn(candidate, name.root, candidate.root.Up(note.Semitones())));
    }
    for (const PitchClass note : candidate.added.Members()) {
      name.added.push_back(NoteIn(candidate, name.root, candidate.root.Up(note.Semitones())));
    }
    return name;
  }

  /// How many typed notes the chord spells otherwise.
  int Disagreements(const Candidate& candidate) const {
    if (sounding_.typed.empty()) return 0;
    const NoteName root = RootOf(candidate);
    return static_cast<int>(std::ranges::count_if(sounding_.typed, [&](NoteName typed) {
      const Degree* degree = DegreeOf(candidate, typed.PitchClass());
      return degree != nullptr && degree->Above(root) != typed;
    }));
  }

 private:
  static const Degree* DegreeOf(const Candidate& candidate, PitchClass note) {
    return candidate.type->formula.At(PitchClass(candidate.root.SemitonesUpTo(note)));
  }

  const NoteName* Typed(PitchClass note) const {
    const auto found = std::ranges::find(sounding_.typed, note, &NoteName::PitchClass);
    return found == sounding_.typed.end() ? nullptr : &*found;
  }

  NoteName RootOf(const Candidate& candidate) const {
    if (const NoteName* typed = Typed(candidate.root)) return *typed;
    return ConventionalTonic(candidate.root, candidate.type->formula, SetKind::kChord);
  }

  NoteName BassOf(const Candidate& candidate, NoteName root) const {
    if (const NoteName* typed = Typed(sounding_.bass)) return *typed;
    const NoteName name = NoteIn(candidate, root, sounding_.bass);
    return std::abs(name.Alteration()) > 1 ? SharpName(sounding_.bass) : name;
  }

  /// The name of a note next to the chord: its degree, as typed, or the usual degree above the root.
  NoteName NoteIn(const Candidate& candidate, NoteName root, PitchClass note) const {
    const Degree* degree = DegreeOf(candidate, note);
    if (degree != nullptr) {
      if (const std::optional<NoteName> name = degree->Above(root)) return *name;
    }
    if (const NoteName* typed = Typed(note)) return *typed;
    constexpr std::array<Degree, kSemitonesPerOctave> kUsual = {
        {{1, 0}, {2, -1}, {2, 0}, {3, -1}, {3, 0}, {4, 0}, {4, 1}, {5, 0}, {6, -1}, {6, 0}, {7, -1}, {7, 0}}};
    const auto usual = kUsual[static_cast<std::size_t>(candidate.root.SemitonesUpTo(note))].Above(root);
    const NoteName simple = SharpName(note);
    // A white key keeps its plain name: B/C, not B/B#.
    return usual && simple.accidental != Accidental::kNatural ? *usual : simple;
  }

  const Sounding& sounding_;
};

std::vector<Candidate> AllCandidates(const Sounding& sounding) {
  std::vector<Candidate> candidates;
  AddExact(sounding, candidates);
  AddForeignBass(sounding, candidates);
  if (candidates.empty()) AddNearest(sounding, candidates);
  return candidates;
}

}  // namespace

Sounding Sounding::FromNames(std::span<const NoteName> names) {
  Sounding sounding;
  if (names.empty()) return sounding;
  sounding.bass = names.front().PitchClass();
  for (const NoteName name : names) {
    if (!sounding.notes.Contains(name.PitchClass())) sounding.typed.push_back(name);
    sounding.notes.Add(name.PitchClass());
  }
  return sounding;
}

Sounding Sounding::FromPitches(std::span<const Pitch> pitches) {
  Sounding sounding;
  if (pitches.empty()) return sounding;
  sounding.bass = std::ranges::min(pitches).Class();
  for (const Pitch pitch : pitches) sounding.notes.Add(pitch.Class());
  return sounding;
}

std::string ChordName::Symbol(NoteStyle style) const {
  std::string text = Write(root, style) + StyledSuffix(type->suffix, style);
  if (bass) text += "/" + Write(*bass, style);
  return text;
}

std::string ChordName::FullName(NoteStyle style) const {
  std::string text = Write(root, style).append(" ").append(type->words);
  if (bass) text += " over " + Write(*bass, style);
  return text;
}

std::vector<ChordName> FindChordNames(const Sounding& sounding, std::size_t limit) {
  const Speller speller(sounding);
  using Rank = std::tuple<ChordGroup, int, int, int, int, std::ptrdiff_t, int>;
  std::vector<std::pair<Rank, Candidate>> ranked;
  for (const Candidate& candidate : AllCandidates(sounding)) {
    // Counting spelling differences is slow, and nearest names have none that matter.
    const int differences = candidate.group == ChordGroup::kNearest ? 0 : speller.Disagreements(candidate);
    ranked.emplace_back(
        Rank{candidate.group, candidate.order, candidate.missing.Size(), candidate.type->signs, differences,
             candidate.type - ChordTypes().data(), sounding.bass.SemitonesUpTo(candidate.root)},
        candidate);
  }
  const std::size_t count = std::min({limit, kMostChordNames, ranked.size()});
  std::ranges::partial_sort(ranked, ranked.begin() + static_cast<std::ptrdiff_t>(count), {},
                            [](const auto& entry) { return entry.first; });
  std::vector<ChordName> names;
  names.reserve(count);
  for (std::size_t i = 0; i < count; ++i) names.push_back(speller.Spelled(ranked[i].second));
  return names;
}

}  // namespace tonalith::theory
