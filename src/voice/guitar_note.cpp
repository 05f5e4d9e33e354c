// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "voice/guitar_note.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "voice/filters.h"
#include "voice/loudness.h"
#include "voice/plucked_string.h"

namespace tonalith::voice {
namespace {

constexpr double kOnsetSeconds = 0.0012;
constexpr double kNoiseSeconds = 0.04;
constexpr double kNoiseDecaySeconds = 0.006;
constexpr double kSubsonicHertz = 28.0;
constexpr double kBridgeHertz = 70.0;
constexpr double kBridgeReturns = 0.92;

std::size_t Samples(double seconds) { return static_cast<std::size_t>(std::lround(seconds * kSampleRate)); }

/// Half a cosine from 0 to 1 for `share` from 0 to 1.
double Ease(double share) { return 0.5 - 0.5 * std::cos(std::numbers::pi * std::clamp(share, 0.0, 1.0)); }

/// White noise between -1 and 1 by the splitmix64 generator, which is the same on every system.
class Noise {
 public:
  explicit Noise(std::uint64_t seed) : state_(seed) {}
  double Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t bits = state_;
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    bits ^= bits >> 31U;
    return static_cast<double>(bits >> 11U) / 4503599627370496.0 - 1.0;
  }

 private:
  std::uint64_t state_;
};

/// The short noise of skin and nail: rises within a millisecond, decays within about ten.
std::vector<double> Rustle(Noise& noise, double lowHertz, double highHertz) {
  OnePoleHighPass low(lowHertz);
  OnePoleLowPass high(highHertz);
  std::vector<double> burst(Samples(kNoiseSeconds));
  for (std::size_t i = 0; i < burst.size(); ++i) {
    const double seconds = static_cast<double>(i) / kSampleRate;
    const double shape = Ease(seconds / kOnsetSeconds) * std::exp(-seconds / kNoiseDecaySeconds) *
                         Ease((kNoiseSeconds - seconds) / 0.01);
    burst[i] = high.Next(low.Next(noise.Next())) * shape;
  }
  return burst;
}

/// The excitation by the finger: a soft impulse and the nail's noise, and the same inverted, a little weaker, reflected
/// from the bridge. This comb filter gives the timbre of the pluck position.
std::vector<double> Pluck(const Guitar& guitar, Pitch pitch, Noise& noise) {
  OnePoleLowPass flesh(guitar.fingerHertz.At(pitch));
  OnePoleLowPass skin(guitar.fingerHertz.At(pitch));
  const std::vector<double> rustle = Rustle(noise, 300.0, 6000.0);
  const double nail = FromDecibels(guitar.nail.At(pitch));
  std::vector<double> finger(rustle.size());
  for (std::size_t i = 0; i < finger.size(); ++i) {
    finger[i] = skin.Next(flesh.Next(i == 0 ? 1.0 : 0.0)) + nail * rustle[i];
  }

  const double period = kSampleRate / HertzOf(pitch);
  const double delay = guitar.pluckPosition.At(pitch) * period;
  const auto whole = static_cast<std::size_t>(delay);
  const double part = delay - static_cast<double>(whole);
  std::vector<double> pluck(finger.size() + whole + 1);
  for (std::size_t i = 0; i < finger.size(); ++i) {
    pluck[i] += finger[i];
    pluck[i + whole] -= kBridgeReturns * (1.0 - part) * finger[i];
    pluck[i + whole + 1] -= kBridgeReturns * part * finger[i];
  }
  return pluck;
}

/// The body: the direct sound plus all resonances.
class Body {
 public:
  Body(const Guitar& guitar, Pitch pitch) : level_(FromDecibels(guitar.body.At(pitch))) {
    for (const BodyMode& mode : guitar.modes) {
      modes_.push_back({Biquad::Resonance(mode.hertz, mode.sharpness), mode.gain});
    }
  }

  double Next(double in) {
    double sum = 0.0;
    for (Mode& mode : modes_) {
      sum += mode.gain * mode.filter.Next(in);
    }
    return in + level_ * sum;
  }

 private:
  struct Mode {
    Biquad filter;
    double gain;
  };
  std::vector<Mode> modes_;
  double level_;
};

/// String and body before fade and level are applied.
std::vector<double> Ring(const Guitar& guitar, Pitch pitch, std::size_t count) {
  Noise noise(guitar.seed + static_cast<std::uint64_t>(pitch));
  const std::vector<double> pluck = Pluck(guitar, pitch, noise);
  const std::vector<double> touch = Rustle(noise, 150.0, 1800.0);
  const double touchLevel = FromDecibels(guitar.touch.At(pitch));
  const double hertz = HertzOf(pitch);
  const double decay = guitar.decay.At(pitch);
  const double trebleDecay = guitar.trebleDecay.At(pitch);
  const double sideLevel = FromDecibels(guitar.sideLevel.At(pitch));
  const double sideDecay = guitar.sideDecay.At(pitch);
  // Both vibrations are detuned around the pitch, in proportion to their energy, so that the sum is in tune.
  const double apart = guitar.sideCents.At(pitch) / 1200.0;
  const double sideShare = sideLevel * sideDecay / (1.0 + sideLevel * sideDecay);
  PluckedString across(hertz * std::exp2(-sideShare * apart), decay, kTrebleHertz, trebleDecay);
  PluckedString along(hertz * std::exp2((1.0 - sideShare) * apart), decay * sideDecay, kTrebleHertz,
                      trebleDecay * sideDecay);
  // The string's wave is an acceleration and the bridge responds to force: integrate once.
  OnePoleLowPass bridge(kBridgeHertz);
  OnePoleHighPass rumble(kSubsonicHertz);
  OnePoleHighPass offset(kSubsonicHertz);
  Body body(guitar, pitch);
  const double onset = kOnsetSeconds * kSampleRate;
  std::vector<double> sound(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double in = i < pluck.size() ? pluck[i] : 0.0;
    const double force = bridge.Next(across.Next(in) + along.Next(sideLevel * in));
    const double rub = i < touch.size() ? touchLevel * touch[i] : 0.0;
    const double rise = Ease(static_cast<double>(i) / onset);
    sound[i] = offset.Next(rumble.Next(rise * body.Next(force + rub)));
  }
  return sound;
}

}  // namespace

NoteLength LengthOf(const SoundSet& set, int number) {
  return {set.SecondsOf(number), set.fadeSeconds, set.silenceSeconds};
}

std::vector<double> PlayNote(const Guitar& guitar, Pitch pitch, const NoteLength& length) {
  const std::size_t silence = Samples(length.silenceSeconds);
  const std::size_t fade = Samples(length.fadeSeconds);
  std::vector<double> sound = Ring(guitar, pitch, Samples(length.seconds));
  const std::size_t end = sound.size() - silence;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double fall = i < end ? Ease(static_cast<double>(end - i) / static_cast<double>(fade)) : 0.0;
    sound[i] *= fall;
  }
  const double gain = FromDecibels(guitar.levelDecibels - MeasureLoudness(sound).Level());
  for (double& sample : sound) sample *= gain;
  return sound;
}

double PeakDecibels(const std::vector<double>& samples) {
  double peak = 0.0;
  for (const double sample : samples) peak = std::max(peak, std::abs(sample));
  return 20.0 * std::log10(peak);
}

}  // namespace tonalith::voice
