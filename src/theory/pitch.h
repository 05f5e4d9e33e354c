// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Pitches of twelve-tone equal temperament, without a spelling: a pitch class, which is a note in any octave, and a
// pitch by its MIDI number.

#pragma once

#include <compare>

namespace tonalith::theory {

inline constexpr int kSemitonesPerOctave = 12;

/// A note in any octave: 0 is C, 11 is B.
class PitchClass {
 public:
  constexpr PitchClass() = default;
  /// Any number of semitones above or below C; only its place in the octave counts.
  explicit constexpr PitchClass(int semitones)
      : semitones_((semitones % kSemitonesPerOctave + kSemitonesPerOctave) % kSemitonesPerOctave) {}

  /// 0 to 11.
  [[nodiscard]] constexpr int Semitones() const { return semitones_; }
  [[nodiscard]] constexpr PitchClass Up(int semitones) const { return PitchClass(semitones_ + semitones); }
  /// The semitones from this pitch class up to the nearest `other`, 0 to 11.
  [[nodiscard]] constexpr int SemitonesUpTo(PitchClass other) const {
    return PitchClass(other.semitones_ - semitones_).semitones_;
  }

  constexpr auto operator<=>(const PitchClass&) const = default;  // NOLINT(modernize-use-nullptr)

 private:
  int semitones_ = 0;
};

/// A MIDI note number: 60 is middle C (C4), 69 is A4.
class Pitch {
 public:
  static constexpr int kLowest = 0;
  static constexpr int kHighest = 127;

  constexpr Pitch() = default;
  /// Numbers outside kLowest to kHighest are allowed as intermediate results; IsMidi tells them apart.
  explicit constexpr Pitch(int midi) : midi_(midi) {}

  [[nodiscard]] constexpr int Midi() const { return midi_; }
  [[nodiscard]] constexpr bool IsMidi() const { return midi_ >= kLowest && midi_ <= kHighest; }
  [[nodiscard]] constexpr PitchClass Class() const { return PitchClass(midi_); }
  [[nodiscard]] constexpr Pitch Up(int semitones) const { return Pitch(midi_ + semitones); }
  /// The lowest pitch of the class that is not below this pitch.
  [[nodiscard]] constexpr Pitch NextUp(PitchClass pitchClass) const { return Up(Class().SemitonesUpTo(pitchClass)); }

  constexpr auto operator<=>(const Pitch&) const = default;  // NOLINT(modernize-use-nullptr)

 private:
  int midi_ = 60;
};

}  // namespace tonalith::theory
