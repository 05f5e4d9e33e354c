// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/positions.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "instrument/box.h"
#include "instrument/long_strings.h"

namespace tonalith::instrument {
namespace {

constexpr int kOctave = theory::kSemitonesPerOctave;

/// The number of the scale's note, counted from the root or from the first note above it.
int NumberOf(const Scale& scale, theory::PitchClass note) {
  const theory::PitchClassSet pattern = scale.notes.From(scale.root);
  const unsigned below = (1U << scale.root.SemitonesUpTo(note)) - 1;
  return 1 + theory::PitchClassSet::FromBits(pattern.Bits() & below).Size();
}

struct Run {
  std::vector<std::vector<int>> frets;
  bool isComplete = true;
};

/// `count` notes on each string from `pitch` on; ends before the first string where they do not fit.
Run RunFrom(int pitch, const std::vector<int>& open, theory::PitchClassSet notes, int count, int frets) {
  Run run;
  run.frets.resize(open.size());
  for (std::size_t string = 0; string < open.size(); ++string) {
    std::vector<int> played;
    for (; static_cast<int>(played.size()) < count; ++pitch) {
      if (notes.Contains(theory::PitchClass(pitch))) played.push_back(pitch - open[string]);
    }
    if (played.front() < 0 || played.back() > frets) {
      run.isComplete = false;
      return run;
    }
    run.frets[string] = std::move(played);
  }
  return run;
}

/// The part of a box from the root at a fret of a string up to the next root; nothing if the box lacks one of them.
std::optional<Box> OctaveIn(const Box& box, const std::vector<int>& open, std::size_t string, int fret) {
  const auto& own = box.frets[string];
  if (std::find(own.begin(), own.end(), fret) == own.end()) return std::nullopt;
  const int root = open[string] + fret;
  Box octave{box.hand, 0, std::vector<std::vector<int>>(open.size())};
  bool hasEnd = false;
  for (std::size_t i = 0; i < open.size(); ++i) {
    for (const int played : box.frets[i]) {
      const int above = open[i] + played - root;
      if (above < 0 || above > kOctave) continue;
      octave.frets[i].push_back(played);
      octave.stretch += std::max({box.hand - played, played - (box.hand + kHandFrets - 1), 0});
      hasEnd = hasEnd || above == kOctave;
    }
  }
  return hasEnd ? std::optional(std::move(octave)) : std::nullopt;
}

/// The octave from a root, in the place of the hand with the fewest stretches; of several the highest, where the root
/// is closest to the index finger.
std::optional<Box> BestOctave(const BoxBuilder& builder, std::size_t string, int fret) {
  std::optional<Box> best;
  for (int hand = fret + kMostStretch; hand > fret - kHandFrets - kMostStretch; --hand) {
    for (const SamePitch samePitch : {SamePitch::kOnHigherString, SamePitch::kOnLowerString}) {
      const auto box = builder.At(hand, samePitch);
      auto octave = box ? OctaveIn(*box, builder.OpenStrings(), string, fret) : std::nullopt;
      if (octave && (!best || octave->stretch < best->stretch)) best = std::move(octave);
    }
  }
  return best;
}

}  // namespace

std::vector<Position> NotesPerString(const Instrument& instrument, const Scale& scale, int notesPerString) {
  const LongStrings strings(instrument);
  if (strings.IsEmpty() || scale.notes.IsEmpty() || notesPerString < 1 || notesPerString > kMostNotesPerString) {
    return {};
  }
  const int lowest = strings.Open().front();
  std::vector<Position> positions;
  std::vector<Position> cut;
  std::set<int> complete;
  for (int fret = 0; fret <= instrument.Frets(); ++fret) {
    const theory::PitchClass note(lowest + fret);
    if (!scale.notes.Contains(note)) continue;
    const Run run = RunFrom(lowest + fret, strings.Open(), scale.notes, notesPerString, instrument.Frets());
    if (!run.isComplete && run.frets.front().empty()) continue;
    Position position{NumberOf(scale, note), strings.OfInstrument(run.frets)};
    if (run.isComplete) complete.insert(position.number);
    (run.isComplete ? positions : cut).push_back(std::move(position));
  }
  for (Position& position : cut) {
    if (complete.insert(position.number).second) positions.push_back(std::move(position));
  }
  std::stable_sort(positions.begin(), positions.end(),
                   [](const Position& a, const Position& b) { return a.number < b.number; });
  return positions;
}

std::vector<Position> SingleStrings(const Instrument& instrument, const Scale& scale) {
  std::vector<Position> positions;
  for (int string = 0; string < instrument.Strings(); ++string) {
    Position position{string + 1, std::vector<std::vector<int>>(static_cast<std::size_t>(instrument.Strings()))};
    std::vector<int>& frets = position.frets[static_cast<std::size_t>(string)];
    for (int fret = 0; fret <= instrument.Frets(); ++fret) {
      const auto pitch = instrument.PitchAt(string, fret);
      if (pitch && scale.notes.Contains(pitch->Class())) frets.push_back(fret);
    }
    if (!frets.empty()) positions.push_back(std::move(position));
  }
  return positions;
}

std::vector<Position> OneOctave(const Instrument& instrument, const Scale& scale) {
  const LongStrings strings(instrument);
  if (!scale.notes.Contains(scale.root)) return {};
  const BoxBuilder builder(strings.Open(), scale.notes, 0, instrument.Frets());
  std::vector<Position> positions;
  for (std::size_t string = 0; string < strings.Open().size(); ++string) {
    for (int fret = 0; fret <= instrument.Frets(); ++fret) {
      if (theory::PitchClass(strings.Open()[string] + fret) != scale.root) continue;
      const auto octave = BestOctave(builder, string, fret);
      if (!octave) continue;
      positions.push_back({static_cast<int>(positions.size()) + 1, strings.OfInstrument(octave->frets)});
    }
  }
  return positions;
}

std::vector<Position> OpenPosition(const Instrument& instrument, const Scale& scale) {
  const LongStrings strings(instrument);
  if (scale.notes.IsEmpty()) return {};
  const auto box = BoxBuilder(strings.Open(), scale.notes, 0, instrument.Frets()).At(0);
  if (!box) return {};
  return {{1, strings.OfInstrument(box->frets)}};
}

}  // namespace tonalith::instrument
