// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the tests read off a finished sound file, with nothing taken over from the synthesiser: header fields, pitch
// from the spectrum, level, decay time and clicks. Samples are 16-bit steps throughout. Pure functions; ReadSound
// throws std::runtime_error for a file that is missing or no RIFF file with a "fmt " chunk and a "data" chunk in that
// order.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tonalith::sounds {

struct Sound {
  std::string bytes;  ///< The whole file.
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
  double fundamentalCents = 0.0;  ///< The lowest partial against the wanted pitch.
  double toneCents = 0.0;  ///< The first eight partials, each brought down to the fundamental, by their strength.
};

/// Compares the spectrum of a struck note with `hertz`. Finds the partials within half a semitone of where they belong.
PitchReading MeasurePitch(const std::vector<double>& samples, double hertz);

/// Decibels against full scale of the loudest 200 ms; a full-scale square wave has 0.
double PlainLevel(const std::vector<double>& samples);

/// The same after the K weighting of ITU-R BS.1770.
double WeightedLevel(const std::vector<double>& samples);

/// Seconds in which the sound falls by 60 dB, from the line through its backward-integrated energy between -5 and -35
/// dB.
double DecaySeconds(const std::vector<double>& samples);

/// The worst click: how many times the strongest bend (second difference) within a millisecond surpasses the strongest
/// one in the 25 ms on either side, with the first `attackSeconds` left out
/// and the silence after the last sample counted in.
double WorstClick(const std::vector<double>& sound, double attackSeconds);

/// The centre of gravity of the spectrum, in hertz, by amplitude, over a stretch of the sound that exists.
double Brightness(const std::vector<double>& samples, double fromSeconds, double seconds);

}  // namespace tonalith::sounds
