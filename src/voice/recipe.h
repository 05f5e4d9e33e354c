// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The recipe of the shipped sounds: the files, their pitches and lengths, and the parameters of the guitar. The build
// generates the program's recipe from the text in content/sounds.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tonalith::voice {

/// A pitch in semitones above C-1; A4 is 69 and has 440 Hz.
using Pitch = int;

/// The range of the string and its filters.
inline constexpr Pitch kLowestPitch = 20;
inline constexpr Pitch kHighestPitch = 100;

/// A value that depends on the pitch: linear between the points, constant beyond the end points.
class Curve {
 public:
  struct Point {
    Pitch pitch = 0;
    double value = 0.0;
  };

  Curve() = default;
  /// At least one point, in ascending order of pitch.
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
  double gain = 0.0;       ///< Linear, relative to the direct sound; the sign is the mode's phase.
};

struct Guitar {
  std::uint64_t seed = 0;
  double levelDecibels = 0.0;  ///< Level of every note, see loudness.h; below 0.
  Curve decay;                 ///< Seconds for a decay of the fundamental by 60 dB.
  Curve trebleDecay;           ///< The same for a partial at kTrebleHertz.
  Curve pluckPosition;         ///< Distance from the bridge as a share of the string, 0.02 to 0.5.
  Curve fingerHertz;           ///< Corner above which the finger damps the pluck.
  Curve nail;                  ///< Level of the nail's noise in dB, relative to the pluck.
  Curve touch;                 ///< Level of the finger's noise in dB, through the body only.
  Curve sideLevel;             ///< Level in dB of the vibration parallel to the top, relative to the other.
  Curve sideCents;             ///< Detuning of the vibration parallel to the top.
  Curve sideDecay;             ///< Its decay as a multiple of the other's decay.
  Curve body;                  ///< Level of all resonances together in dB.
  std::vector<BodyMode> modes;
};

/// The frequency of the partial that Guitar::trebleDecay describes.
inline constexpr double kTrebleHertz = 4000.0;

enum class Steps { kChromatic, kMajor };

/// One folder of numbered files.
struct SoundSet {
  std::string folder;
  Steps steps = Steps::kChromatic;
  Pitch first = 0;
  int count = 0;
  double firstSeconds = 0.0;  ///< Length of file 0; the lengths up to the last file are interpolated linearly.
  double lastSeconds = 0.0;
  double fadeSeconds = 0.0;     ///< Time in which the finger damps the string.
  double silenceSeconds = 0.0;  ///< Silence after that, at the end of the file.

  [[nodiscard]] Pitch PitchOf(int number) const;
  [[nodiscard]] double SecondsOf(int number) const;
  /// Whether these are the recordings of scale positions.
  [[nodiscard]] bool IsScale() const { return folder == "Audio"; }
};

struct Recipe {
  Guitar guitar;
  std::vector<SoundSet> sets;
};

/// The recipe compiled into the program: content/sounds/guitar.recipe.
const Recipe& BuiltInRecipe();

/// Frequency in equal temperament.
double HertzOf(Pitch pitch);

/// Converts decibels to a linear factor.
double FromDecibels(double decibels);

}  // namespace tonalith::voice
