// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Measures sound files independently of the synthesiser: header fields, pitch from the spectrum, level, decay time and
// clicks. Samples are 16-bit values. ReadSound throws std::runtime_error for a file that is missing or is not a RIFF
// file with a "fmt " chunk followed by a "data" chunk.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tonalith::sounds {

struct Sound {
  std::string bytes;  ///< The complete file.
  std::uint32_t riffSize = 0;
  std::uint32_t formatSize = 0;
  std::uint16_t formatTag = 0;
  std::uint16_t channels = 0;
  std::uint32_t samplesPerSecond = 0;
  std::uint32_t bytesPerSecond = 0;
  std::uint16_t blockAlign = 0;
  std::uint16_t bitsPerSample = 0;
  std::uint32_t dataSize = 0;
  std::vector<double> samples;
};

Sound ReadSound(const std::filesystem::path& path);

struct PitchReading {
  double fundamentalCents = 0.0;  ///< The deviation of the lowest partial.
  double toneCents = 0.0;         ///< The weighted deviation of the first eight partials.
};

/// Compares the spectrum of a plucked note with `hertz`. Finds partials within half a semitone of their expected
/// frequency.
PitchReading MeasurePitch(const std::vector<double>& samples, double hertz);

/// The level of the loudest 200 ms in decibels relative to full scale; 0 for a full-scale square wave.
double PlainLevel(const std::vector<double>& samples);

/// As above, after the K weighting of ITU-R BS.1770.
double WeightedLevel(const std::vector<double>& samples);

/// Seconds for a decay by 60 dB, from a line through the backward-integrated energy between -5 and -35 dB.
double DecaySeconds(const std::vector<double>& samples);

/// The worst click: the ratio of the largest second difference within a millisecond to the largest one in the 25 ms
/// before and after. Skips the first `attackSeconds`; includes the silence after the last sample.
double WorstClick(const std::vector<double>& sound, double attackSeconds);

/// The centroid of the amplitude spectrum, in hertz, over a range inside the sound.
double Brightness(const std::vector<double>& samples, double fromSeconds, double seconds);

}  // namespace tonalith::sounds
