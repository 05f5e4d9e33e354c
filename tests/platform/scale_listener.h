// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Plays a scale through the sound manager and the sound device and measures the recording of the device's output: which
// pitches are heard, how well they are in tune, how long the silence between two recordings is. The pitches are read
// from the recording alone. A device records in real time. User-interface thread; reports what fails to GoogleTest.

#pragma once

#include <string>
#include <vector>

#include "platform/recorded_sound.h"

namespace tonalith::testing {

struct ListenedScale {
  std::string name;
  std::string pattern;
};

/// Twenty scales and chords of 2 to 12 steps, some of which do not end on their key.
const std::vector<ListenedScale>& ListenedScales();

struct HeardNote {
  /// In semitones from C-1, the nearest to the measured pitch.
  int pitch = 0;
  /// How far the fundamental and the first eight partials are off that pitch, whichever is more.
  double cents = 0;
  /// From the first to after the last sample of the recording that was played, in frames.
  Stretch place;
  /// The largest difference from the samples of the note that the program's voice renders; full scale is 1.
  double difference = 0;
};

struct Heard {
  std::vector<HeardNote> notes;
  /// Seconds between the end of a recording and the start of the next.
  std::vector<double> gaps;
  /// What message boxes showed.
  std::string messages;
};

/// The output of the device while the scale is played from the recordings in `folder`, which ends with a separator.
Recording RecordScale(const std::string& folder, const std::string& key, const std::string& pattern,
                      std::string& messages);

/// The same, measured.
Heard ListenToScale(const std::string& folder, const std::string& key, const std::string& pattern);

/// What is to be heard: the first note between C4 and B4, each step of the pattern, and the first note once more where
/// the last one is not the key.
std::vector<int> PitchesOfScale(const std::string& key, const std::string& pattern);

/// The largest difference of a recording, on both sides, from the samples of a mono file of 16 bits; `first` is the
/// frame at which the file begins. Infinite where the recording is shorter.
double DifferenceFrom(const Recording& recording, std::size_t first, const std::vector<double>& steps);

}  // namespace tonalith::testing
