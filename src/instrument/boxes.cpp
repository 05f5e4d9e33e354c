// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Chooses the places of boxes along the neck.

#include <algorithm>
#include <array>
#include <bitset>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "instrument/box.h"
#include "instrument/long_strings.h"
#include "instrument/positions.h"

namespace tonalith::instrument {
namespace {

constexpr int kOctave = theory::kSemitonesPerOctave;

/// The box at each place of the hand within an octave, on a neck without ends. A place may have none.
using OctaveOfBoxes = std::array<std::optional<Box>, kOctave>;

OctaveOfBoxes BoxesOfOctave(const std::vector<int>& open, theory::PitchClassSet notes) {
  const BoxBuilder builder(open, notes, -kOctave, 3 * kOctave);
  OctaveOfBoxes boxes;
  for (int place = 0; place < kOctave; ++place) boxes.at(static_cast<std::size_t>(place)) = builder.At(place);
  return boxes;
}

/// Any place; the octave has no ends.
const std::optional<Box>& At(const OctaveOfBoxes& boxes, int place) {
  return boxes.at(static_cast<std::size_t>(theory::PitchClass(place).Semitones()));
}

/// A place without a box needs more stretches than all others.
int StretchAt(const OctaveOfBoxes& boxes, int place) {
  constexpr int kUnreachable = 1'000'000;
  return At(boxes, place) ? At(boxes, place)->stretch : kUnreachable;
}

/// The places from `first` on that need as many stretches.
int LengthOfPlateau(const OctaveOfBoxes& boxes, int first) {
  int length = 1;
  while (length < kOctave && StretchAt(boxes, first + length) == StretchAt(boxes, first)) ++length;
  return length;
}

int BestOfPlateau(const OctaveOfBoxes& boxes, int first, int length) {
  const auto key = [&](int place) {
    const Box& box = *At(boxes, place);
    return std::tuple(-box.Notes(), box.Unevenness(), box.Spans());
  };
  int best = first;
  for (int place = first + 1; place < first + length; ++place) {
    if (key(place) < key(best)) best = place;
  }
  return best;
}

/// The places whose neighbours need more stretches, one for each plateau; from 0 to 11, ascending. None if all places
/// need equally many.
std::vector<int> EasiestPlaces(const OctaveOfBoxes& boxes) {
  std::set<int> places;
  for (int place = 0; place < kOctave; ++place) {
    if (!At(boxes, place) || StretchAt(boxes, place - 1) <= StretchAt(boxes, place)) continue;
    const int length = LengthOfPlateau(boxes, place);
    const bool isLow = StretchAt(boxes, place + length) > StretchAt(boxes, place);
    if (isLow) places.insert(theory::PitchClass(BestOfPlateau(boxes, place, length)).Semitones());
  }
  return {places.begin(), places.end()};
}

bool HasRootOnLowestString(const Box& box, int rootFret) {
  const auto& lowest = box.frets.front();
  return std::any_of(lowest.begin(), lowest.end(), [&](int fret) { return (fret - rootFret) % kOctave == 0; });
}

Box MovedUp(Box box, int frets) {
  box.hand += frets;
  for (auto& string : box.frets) {
    for (int& fret : string) fret += frets;
  }
  return box;
}

/// Whether the hand and all notes are on the neck.
bool Fits(const Box& box, int frets) {
  if (box.hand < 0 || box.hand + kHandFrets - 1 > frets) return false;
  return std::all_of(box.frets.begin(), box.frets.end(), [frets](const auto& string) {
    return string.empty() || (string.front() >= 0 && string.back() <= frets);
  });
}

/// The box in all octaves in which it fits on the neck.
std::vector<Box> OnNeck(const Box& box, int frets) {
  std::vector<Box> boxes;
  for (int octave = -1; kOctave * octave <= frets; ++octave) {
    Box moved = MovedUp(box, kOctave * octave);
    if (Fits(moved, frets)) boxes.push_back(std::move(moved));
  }
  return boxes;
}

/// The easiest places that have a box on the neck, one of which has the root on the lowest string, if possible: if none
/// of them has, the easiest of the others that has is added.
std::vector<int> PlacesOnNeck(const OctaveOfBoxes& boxes, int rootFret, int frets) {
  const auto isOnNeck = [&](int place) { return At(boxes, place) && !OnNeck(*At(boxes, place), frets).empty(); };
  const auto hasRoot = [&](int place) { return HasRootOnLowestString(*At(boxes, place), rootFret); };
  std::vector<int> places = EasiestPlaces(boxes);
  std::erase_if(places, [&](int place) { return !isOnNeck(place); });
  if (std::any_of(places.begin(), places.end(), hasRoot)) return places;
  std::optional<int> best;
  // The first one has the root closest to the index finger.
  for (int place = rootFret; place > rootFret - kOctave; --place) {
    if (!isOnNeck(place) || !hasRoot(place)) continue;
    if (!best || StretchAt(boxes, place) < StretchAt(boxes, *best)) best = place;
  }
  if (best) places.push_back(theory::PitchClass(*best).Semitones());
  std::sort(places.begin(), places.end());
  return places;
}

/// Rotates the places so that the first one has the root on the lowest string, closest to the index finger.
std::vector<int> FromRoot(std::vector<int> places, const OctaveOfBoxes& boxes, int rootFret) {
  const auto key = [&](int place) {
    const bool hasRoot = HasRootOnLowestString(*At(boxes, place), rootFret);
    return std::pair(!hasRoot, theory::PitchClass(rootFret - place).Semitones());
  };
  const auto first = std::min_element(places.begin(), places.end(), [&](int a, int b) { return key(a) < key(b); });
  std::rotate(places.begin(), first, places.end());
  return places;
}

/// The notes of the neck that no box has yet.
class Uncovered {
 public:
  Uncovered(const BoxBuilder& builder, int frets) : strings_(builder.OpenStrings().size()) {
    const std::vector<int>& open = builder.OpenStrings();
    for (std::size_t string = 0; string < open.size(); ++string) {
      for (int fret = 0; fret <= frets; ++fret) {
        strings_[string].set(static_cast<std::size_t>(fret), builder.IsInScale(open[string] + fret));
      }
    }
  }

  [[nodiscard]] bool IsEmpty() const {
    return std::all_of(strings_.begin(), strings_.end(), [](const auto& string) { return string.none(); });
  }

  [[nodiscard]] int CountIn(const Box& box) const {
    int count = 0;
    for (std::size_t string = 0; string < strings_.size(); ++string) {
      for (const int fret : box.frets[string]) count += strings_[string][static_cast<std::size_t>(fret)] ? 1 : 0;
    }
    return count;
  }

  void Remove(const Box& box) {
    for (std::size_t string = 0; string < strings_.size(); ++string) {
      for (const int fret : box.frets[string]) strings_[string].reset(static_cast<std::size_t>(fret));
    }
  }

 private:
  /// One bit per fret.
  std::vector<std::bitset<Instrument::kMostFrets + 1>> strings_;
};

/// All boxes of the neck, in both ways to place a pitch that is on two strings.
std::vector<Box> AllBoxes(const BoxBuilder& builder, int frets) {
  std::vector<Box> boxes;
  for (int hand = 0; hand + kHandFrets - 1 <= frets; ++hand) {
    for (const SamePitch samePitch : {SamePitch::kOnHigherString, SamePitch::kOnLowerString}) {
      if (auto box = builder.At(hand, samePitch)) boxes.push_back(std::move(*box));
    }
  }
  return boxes;
}

/// The box with the most uncovered notes, of several the one with the fewest stretches; null if no box has any.
const Box* MostUseful(const std::vector<Box>& boxes, const Uncovered& uncovered) {
  const Box* best = nullptr;
  std::pair<int, int> bestKey;
  for (const Box& box : boxes) {
    const std::pair key(-uncovered.CountIn(box), box.stretch);
    if (key.first == 0 || (best != nullptr && key >= bestKey)) continue;
    bestKey = key;
    best = &box;
  }
  return best;
}

/// The number of the box that a longer neck would have at the place of `box` or next to it; 0 if there is none.
int NumberBeyondTheNeck(const Box& box, const std::vector<int>& places, const OctaveOfBoxes& boxes, int frets) {
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (const int distance : {0, -1, 1}) {
      if (theory::PitchClass(places[i] + distance) != theory::PitchClass(box.hand)) continue;
      const bool isOnNeck = Fits(MovedUp(*At(boxes, places[i]), box.hand - distance - places[i]), frets);
      if (!isOnNeck) return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

int LowestFret(const Position& position) {
  int lowest = Instrument::kMostFrets;
  for (const auto& string : position.frets) lowest = string.empty() ? lowest : std::min(lowest, string.front());
  return lowest;
}

}  // namespace

std::vector<Position> Boxes(const Instrument& instrument, const Scale& scale) {
  const LongStrings strings(instrument);
  if (strings.IsEmpty() || scale.notes.IsEmpty()) return {};
  const int frets = instrument.Frets();
  const OctaveOfBoxes boxes = BoxesOfOctave(strings.Open(), scale.notes);
  const int rootFret = theory::PitchClass(strings.Open().front()).SemitonesUpTo(scale.root);
  const std::vector<int> places = FromRoot(PlacesOnNeck(boxes, rootFret, frets), boxes, rootFret);

  const BoxBuilder neck(strings.Open(), scale.notes, 0, frets);
  Uncovered uncovered(neck, frets);
  std::vector<Position> positions;
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (const Box& box : OnNeck(*At(boxes, places[i]), frets)) {
      uncovered.Remove(box);
      positions.push_back({static_cast<int>(i) + 1, strings.OfInstrument(box.frets)});
    }
  }
  int last = static_cast<int>(places.size());
  const std::vector<Box> candidates = uncovered.IsEmpty() ? std::vector<Box>() : AllBoxes(neck, frets);
  while (const Box* box = MostUseful(candidates, uncovered)) {
    uncovered.Remove(*box);
    int number = NumberBeyondTheNeck(*box, places, boxes, frets);
    if (number == 1 && !HasRootOnLowestString(*box, rootFret)) number = 0;
    positions.push_back({number != 0 ? number : ++last, strings.OfInstrument(box->frets)});
  }
  const auto key = [](const Position& position) { return std::pair(position.number, LowestFret(position)); };
  std::stable_sort(positions.begin(), positions.end(),
                   [&](const Position& a, const Position& b) { return key(a) < key(b); });
  return positions;
}

}  // namespace tonalith::instrument
