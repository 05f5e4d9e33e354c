// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/grip_search.h"

#include <algorithm>
#include <bit>

#include "instrument/fingering.h"
#include "instrument/shapes.h"

namespace tonalith::instrument {
namespace {

static_assert(Instrument::kMostStrings * kBitsPerString <= 64);
static_assert(Instrument::kMostFrets + 1 < 1 << kBitsPerString);

using PitchClassSet = theory::PitchClassSet;

/// A grip whose first strings are decided.
struct Partial {
  Grip grip;
  int string = 0;
  PitchClassSet notes;
  int lowestPitch = theory::Pitch::kHighest + 1;
  int sounding = 0;
  /// Muted strings with a sounding string on both sides, and those after the last sounding string.
  int innerMuted = 0;
  int lastMuted = 0;
  int fingers = 0;
  /// The frets above the lowest one whose finger can be laid flat over the next string, one bit each.
  unsigned extendable = 0;
  bool hasLowestFret = false;
};

class Search {
 public:
  Search(const Instrument& instrument, const Chord& chord, int highestFret)
      : instrument_(instrument),
        chord_(chord),
        tones_(TonesOf(chord, instrument.Strings())),
        highestFret_(std::min(highestFret, instrument.Frets())) {
    PitchClassSet allowed = tones_.all;
    if (tones_.foreignBass) allowed.Add(*tones_.foreignBass);
    for (int string = 0; string < instrument.Strings(); ++string) {
      for (int fret = 0; fret <= highestFret_; ++fret) {
        const auto pitch = instrument.PitchAt(string, fret);
        if (!pitch || !allowed.Contains(pitch->Class())) continue;
        pitches_.at(Index(string)).at(Index(fret)) = static_cast<std::int16_t>(pitch->Midi());
      }
    }
  }

  GripList Run() {
    if (!tones_.all.IsEmpty()) {
      for (lowestFret_ = 0; lowestFret_ <= highestFret_; ++lowestFret_) {
        const int span = lowestFret_ < kFirstFretOfWideHand ? kSpan : kWideSpan;
        windowEnd_ = lowestFret_ == 0 ? 0 : std::min(lowestFret_ + span, highestFret_);
        Extend({});
      }
    }
    return std::move(found_);
  }

 private:
  static std::size_t Index(int number) { return static_cast<std::size_t>(number); }

  void Extend(const Partial& partial) {
    if (!found_.isComplete) return;
    if (++steps_ > kMostSearchSteps) {
      found_.isComplete = false;
      return;
    }
    const int left = instrument_.Strings() - partial.string;
    if ((tones_.Required() - partial.notes).Size() > left) return;
    if (left == 0) {
      Take(partial);
      return;
    }
    Mute(partial);
    if (partial.innerMuted + (partial.sounding > 0 ? partial.lastMuted : 0) > kMostInnerMuted) return;
    Sound(partial, 0);
    for (int fret = std::max(lowestFret_, 1); fret <= windowEnd_; ++fret) Sound(partial, fret);
  }

  void Mute(Partial partial) {
    partial.grip.frets.at(Index(partial.string)) = Grip::kMuted;
    ++partial.string;
    ++partial.lastMuted;
    partial.extendable = 0;
    Extend(partial);
  }

  void Sound(Partial partial, int fret) {
    const int pitch = pitches_.at(Index(partial.string)).at(Index(fret));
    if (pitch == kNoPitch) return;
    if (fret == 0) {
      partial.extendable = 0;
    } else {
      // A string that is stopped at a lower fret ends all barres above that fret.
      const unsigned place = 1U << (fret - lowestFret_);
      if ((partial.extendable & place) == 0) ++partial.fingers;
      if (partial.fingers > kFingers) return;
      partial.extendable = (partial.extendable & (place - 1)) | place;
    }
    partial.grip.frets.at(Index(partial.string)) = static_cast<std::int16_t>(fret);
    ++partial.string;
    if (partial.sounding > 0) partial.innerMuted += partial.lastMuted;
    partial.lastMuted = 0;
    ++partial.sounding;
    partial.hasLowestFret = partial.hasLowestFret || fret == lowestFret_;
    partial.lowestPitch = std::min(partial.lowestPitch, pitch);
    partial.notes.Add(theory::PitchClass(pitch));
    Extend(partial);
  }

  void Take(const Partial& partial) {
    if (!partial.hasLowestFret) return;
    if (!tones_.MissingFrom(partial.notes)) return;
    if (chord_.bass && theory::PitchClass(partial.lowestPitch) != *chord_.bass) return;
    if (tones_.foreignBass && TimesOf(partial.grip, *tones_.foreignBass) > 1) return;
    if (found_.grips.size() == kMostGrips) {
      found_.isComplete = false;
      return;
    }
    found_.grips.push_back(partial.grip);
  }

  [[nodiscard]] int TimesOf(const Grip& grip, theory::PitchClass pitchClass) const {
    int times = 0;
    for (int string = 0; string < instrument_.Strings(); ++string) {
      const int fret = grip.frets.at(Index(string));
      if (fret != Grip::kMuted && theory::PitchClass(pitches_.at(Index(string)).at(Index(fret))) == pitchClass) ++times;
    }
    return times;
  }

  /// The initial value of the table. No MIDI pitch of a fret above an open string is 0.
  static constexpr std::int16_t kNoPitch = -1;
  using StringPitches = std::array<std::int16_t, Instrument::kMostFrets + 1>;

  static std::array<StringPitches, Instrument::kMostStrings> NoPitches() {
    std::array<StringPitches, Instrument::kMostStrings> pitches{};
    for (StringPitches& string : pitches) string.fill(kNoPitch);
    return pitches;
  }

  const Instrument& instrument_;
  const Chord& chord_;
  ChordTones tones_;
  int highestFret_ = 0;
  /// The pitch of each string and fret that may sound, else kNoPitch.
  std::array<StringPitches, Instrument::kMostStrings> pitches_ = NoPitches();
  int lowestFret_ = 0;
  int windowEnd_ = 0;
  std::size_t steps_ = 0;
  GripList found_;
};

}  // namespace

std::uint64_t Grip::Key() const {
  std::uint64_t key = 0;
  for (std::size_t i = 0; i < frets.size(); ++i) {
    key |= static_cast<std::uint64_t>(frets.at(i) + 1) << (kBitsPerString * static_cast<int>(i));
  }
  return key;
}

Frets Grip::ToFrets(int strings) const {
  Frets shown;
  for (int string = 0; string < strings; ++string) {
    const int fret = frets.at(static_cast<std::size_t>(string));
    shown.push_back(fret == kMuted ? Fret() : Fret(fret));
  }
  return shown;
}

GripList FindGrips(const Instrument& instrument, const Chord& chord, int highestFret) {
  return Search(instrument, chord, highestFret).Run();
}

}  // namespace tonalith::instrument
