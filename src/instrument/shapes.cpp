// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/shapes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <tuple>
#include <utility>

#include "instrument/grip_index.h"
#include "instrument/grip_search.h"
#include "instrument/known_shapes.h"

namespace tonalith::instrument {
namespace {

/// What decides the place of a grip: compared from the first to the last criterion, and the smaller number wins.
enum Criterion : std::size_t { kKnown, kBass, kOmitted, kPart, kMuted, kFingersUsed, kReach, kPlace, kSilent, kCount };
using Rank = std::array<int, kCount>;

struct Candidate {
  Grip grip;
  Rank rank{};
  theory::PitchClass bass;
  Fingering fingering;
  theory::PitchClassSet missing;
};

bool IsBefore(const Candidate& a, const Candidate& b) {
  return std::tie(a.rank, a.grip.frets) < std::tie(b.rank, b.grip.frets);
}

/// The lowest and the highest stopped fret; 0 and 0 if there is none.
std::pair<int, int> StoppedFrets(const Frets& frets) {
  int lowest = 0;
  int highest = 0;
  for (const Fret fret : frets) {
    if (!fret || *fret == 0) continue;
    lowest = lowest == 0 ? *fret : std::min(lowest, *fret);
    highest = std::max(highest, *fret);
  }
  return {lowest, highest};
}

int InnerMuted(const Frets& frets) {
  int inner = 0;
  int muted = 0;
  bool hasSounded = false;
  for (const Fret fret : frets) {
    if (!fret) {
      ++muted;
      continue;
    }
    if (hasSounded) inner += muted;
    hasSounded = true;
    muted = 0;
  }
  return inner;
}

/// The same grip an octave lower; nothing where the neck ends.
std::optional<Grip> OctaveBelow(const Instrument& instrument, const Grip& grip) {
  Grip lower = grip;
  for (int string = 0; string < instrument.Strings(); ++string) {
    std::int16_t& fret = lower.frets.at(static_cast<std::size_t>(string));
    if (fret == Grip::kMuted) continue;
    const auto pitch = instrument.PitchAt(string, fret);
    const auto below = pitch ? instrument.FretOf(string, pitch->Up(-theory::kSemitonesPerOctave)) : std::nullopt;
    if (!below) return std::nullopt;
    fret = static_cast<std::int16_t>(*below);
  }
  return lower;
}

std::vector<Grip> WithoutOctaveCopies(const Instrument& instrument, const std::vector<Grip>& grips) {
  const GripIndex index(grips);
  std::vector<Grip> kept;
  std::copy_if(grips.begin(), grips.end(), std::back_inserter(kept), [&](const Grip& grip) {
    const auto lower = OctaveBelow(instrument, grip);
    return !lower || !index.Find(lower->Key());
  });
  return kept;
}

class Judge {
 public:
  Judge(const Instrument& instrument, const Chord& chord)
      : instrument_(instrument),
        chord_(chord),
        tones_(TonesOf(chord, instrument.Strings())),
        known_(KnownShapesOf(BuiltInKnownShapes(), instrument, chord)) {}

  /// All criteria except kPart.
  [[nodiscard]] std::optional<Candidate> Judged(const Grip& grip) const {
    const Frets frets = grip.ToFrets(instrument_.Strings());
    auto fingering = FingeringOf(frets);
    const auto pitches = PitchesOf(instrument_, frets);
    if (!fingering || !pitches || pitches->empty()) return std::nullopt;
    Candidate candidate;
    candidate.grip = grip;
    candidate.fingering = std::move(*fingering);
    theory::PitchClassSet notes;
    for (const theory::Pitch pitch : *pitches) notes.Add(pitch.Class());
    candidate.missing = tones_.all - notes;
    candidate.bass = std::min_element(pitches->begin(), pitches->end())->Class();
    const auto [lowest, highest] = StoppedFrets(frets);
    candidate.rank[kKnown] = KnownPlace(frets);
    candidate.rank[kBass] = candidate.bass == chord_.root ? 0 : 1;
    candidate.rank[kOmitted] = candidate.missing.Size();
    candidate.rank[kMuted] = InnerMuted(frets);
    candidate.rank[kFingersUsed] = candidate.fingering.count;
    candidate.rank[kReach] = highest - lowest;
    candidate.rank[kPlace] = lowest;
    candidate.rank[kSilent] = instrument_.Strings() - static_cast<int>(pitches->size());
    return candidate;
  }

 private:
  /// The place among the known shapes; the number of known shapes for all others.
  [[nodiscard]] int KnownPlace(const Frets& frets) const {
    return static_cast<int>(std::find(known_.begin(), known_.end(), frets) - known_.begin());
  }

  const Instrument& instrument_;
  const Chord& chord_;
  ChordTones tones_;
  std::vector<Frets> known_;
};

/// A part follows all grips that are no parts, and among the parts those with more strings.
void RankParts(int strings, std::vector<Candidate>& candidates) {
  std::vector<Grip> grips;
  std::vector<theory::PitchClass> basses;
  for (const Candidate& candidate : candidates) {
    grips.push_back(candidate.grip);
    basses.push_back(candidate.bass);
  }
  const std::vector<bool> areParts = ArePartsOfOthers(strings, grips, basses);
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (areParts[i]) candidates[i].rank[kPart] = 1 + candidates[i].rank[kSilent];
  }
}

}  // namespace

ShapeList ShapesOf(const Instrument& instrument, const Chord& chord, const ShapeOptions& options) {
  const GripList found = FindGrips(instrument, chord, options.highestFret);
  const Judge judge(instrument, chord);
  std::vector<Candidate> candidates;
  for (const Grip& grip : WithoutOctaveCopies(instrument, found.grips)) {
    if (auto candidate = judge.Judged(grip)) candidates.push_back(std::move(*candidate));
  }
  RankParts(instrument.Strings(), candidates);
  const std::size_t count = std::min(options.limit, candidates.size());
  const auto end = candidates.begin() + static_cast<std::ptrdiff_t>(count);
  std::partial_sort(candidates.begin(), end, candidates.end(), IsBefore);
  ShapeList list{.shapes = {}, .isComplete = found.isComplete};
  for (auto candidate = candidates.begin(); candidate != end; ++candidate) {
    list.shapes.push_back(
        {candidate->grip.ToFrets(instrument.Strings()), std::move(candidate->fingering), candidate->missing});
  }
  return list;
}

}  // namespace tonalith::instrument
