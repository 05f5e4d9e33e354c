// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Plays a scale through the sound manager and the sound device and analyses the recorded output: pitches, intonation,
// and silence between notes. The pitches are derived from the recording only. Recording takes real time. Reports
// failures to GoogleTest.

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

struct AnalysedNote {
  /// In semitones above C-1, nearest to the measured pitch.
  int pitch = 0;
  /// The larger deviation of the fundamental and of the first eight partials from that pitch.
  double cents = 0;
  /// The range of the played recording, in frames.
  Stretch place;
  /// The largest difference from the samples that the voice room renders; full scale is 1.
  double difference = 0;
};

struct AnalysedScale {
  std::vector<AnalysedNote> notes;
  /// Seconds between the end of a note and the start of the next.
  std::vector<double> gaps;
  /// The texts of message boxes.
  std::string messages;
};

/// The output of the device while the scale is played from the recordings in `folder`, which must end with a separator.
Recording RecordScale(const std::string& folder, const std::string& key, const std::string& pattern,
                      std::string& messages);

/// As above, analysed.
AnalysedScale ListenToScale(const std::string& folder, const std::string& key, const std::string& pattern);

/// The expected pitches: the first note between C4 and B4, each step of the pattern, and the first note again if the
/// last one is not the key.
std::vector<int> PitchesOfScale(const std::string& key, const std::string& pattern);

/// The largest difference of a recording, on both channels, from the samples of a 16-bit mono file; `first` is the
/// frame at which the file starts. Infinite if the recording is too short.
double DifferenceFrom(const Recording& recording, std::size_t first, const std::vector<double>& steps);

}  // namespace tonalith::testing
