// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The recipe of the shipped sounds: which files there are, their pitches and lengths, and the numbers of the guitar
// that plays them. The build makes the program's recipe of the text in content/sounds. Plain values without a thread of
// their own; nothing fails.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tonalith::voice {

/// A pitch as its distance in semitones from C-1; A4 is 69 and sounds at 440 Hz.
using Pitch = int;

/// The range in which the string and its filters work.
inline constexpr Pitch kLowestPitch = 20;
inline constexpr Pitch kHighestPitch = 100;

/// A value that changes over the neck: straight lines between the points, the end points' values beyond them.
class Curve {
 public:
  struct Point {
    Pitch pitch = 0;
    double value = 0.0;
  };

  Curve() = default;
  /// At least one point, in rising order of pitch.
  explicit Curve(std::vector<Point> points) : points_(std::move(points)) {}

  [[nodiscard]] double At(Pitch pitch) const;
  [[nodiscard]] const std::vector<Point>& Points() const { return points_; }

 private:
  std::vector<Point> points_;
};

/// One resonance of the guitar's body.
struct BodyMode {
  double hertz = 0.0;
  double sharpness = 0.0;  ///< Centre frequency divided by bandwidth.
  double gain = 0.0;       ///< Linear, against the direct sound; the sign is the mode's phase.
};

struct Guitar {
  std::uint64_t seed = 0;
  double levelDecibels = 0.0;  ///< Level of every note, see loudness.h; below 0.
  Curve decay;                 ///< Seconds in which the fundamental falls by 60 dB.
  Curve trebleDecay;           ///< The same for a partial at kTrebleHertz.
  Curve pluckPosition;         ///< Share of the string between bridge and finger, 0.02 to 0.5.
  Curve fingerHertz;           ///< Corner above which the flesh of the finger swallows the pluck.
  Curve nail;                  ///< Level of the nail's noise against the pluck in dB.
  Curve touch;                 ///< Level of the finger's own noise in dB, heard through the body alone.
  Curve sideLevel;             ///< Level in dB of the string's swing along the top against the one across it.
  Curve sideCents;             ///< How much the swing along the top is out of tune.
  Curve sideDecay;             ///< Its decay as a multiple of the other's.
  Curve body;                  ///< Level of all resonances together in dB.
  std::vector<BodyMode> modes;
};

/// The pitch up to which Guitar::trebleDecay speaks.
inline constexpr double kTrebleHertz = 4000.0;

enum class Steps { kChromatic, kMajor };

/// One folder of numbered files.
struct SoundSet {
  std::string folder;
  Steps steps = Steps::kChromatic;
  Pitch first = 0;
  int count = 0;
  double firstSeconds = 0.0;  ///< Length of the file 0; the lengths between it and the last file lie on a line.
  double lastSeconds = 0.0;
  double fadeSeconds = 0.0;     ///< The finger comes down on the string over this time ...
  double silenceSeconds = 0.0;  ///< ... and this much silence follows, which ends the file.

  [[nodiscard]] Pitch PitchOf(int number) const;
  [[nodiscard]] double SecondsOf(int number) const;
  /// Whether these are the recordings of scale positions.
  [[nodiscard]] bool IsScale() const { return folder == "Audio"; }
};

struct Recipe {
  Guitar guitar;
  std::vector<SoundSet> sets;
};

/// The recipe that the program was built with: content/sounds/guitar.recipe. Safe to call from several threads.
const Recipe& BuiltInRecipe();

/// Hertz in equal temperament.
double HertzOf(Pitch pitch);

/// A linear factor from decibels.
double FromDecibels(double decibels);

}  // namespace tonalith::voice
