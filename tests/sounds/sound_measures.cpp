// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "sounds/sound_measures.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <fstream>
#include <iterator>
#include <numbers>
#include <stdexcept>
#include <utility>

namespace tonalith::sounds {
namespace {

constexpr double kRate = 44100.0;
constexpr double kFullScale = 32768.0;
constexpr std::size_t kTransform = 1U << 17U;

using Complex = std::complex<double>;

std::uint32_t LittleEndian(const std::string& bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i) {
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes.at(at + i))) << (8 * i);
  }
  return value;
}

/// The in-place radix-2 Fourier transform; the size must be a power of two.
void Transform(std::vector<Complex>& values) {
  const std::size_t size = values.size();
  for (std::size_t i = 1, j = 0; i < size; ++i) {
    std::size_t bit = size >> 1U;
    for (; (j & bit) != 0; bit >>= 1U) {
      j ^= bit;
    }
    j ^= bit;
    if (i < j) {
      std::swap(values[i], values[j]);
    }
  }
  std::vector<Complex> turns(size / 2);
  for (std::size_t i = 0; i < turns.size(); ++i) {
    turns[i] = std::polar(1.0, -2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(size));
  }
  for (std::size_t half = 1; half < size; half *= 2) {
    const std::size_t stride = size / (2 * half);
    for (std::size_t start = 0; start < size; start += 2 * half) {
      for (std::size_t i = 0; i < half; ++i) {
        const Complex odd = values[start + half + i] * turns[i * stride];
        values[start + half + i] = values[start + i] - odd;
        values[start + i] += odd;
      }
    }
  }
}

/// The power spectrum of a range of the sound, truncated at its end, with a Hann window.
std::vector<double> Spectrum(const std::vector<double>& samples, double fromSeconds, double seconds) {
  const auto from = static_cast<std::size_t>(fromSeconds * kRate);
  const std::size_t count = std::min(samples.size() - from, static_cast<std::size_t>(seconds * kRate));
  std::vector<Complex> values(kTransform);
  for (std::size_t i = 0; i < count; ++i) {
    const double turn = 2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count);
    values[i] = samples[from + i] * (0.5 - 0.5 * std::cos(turn));
  }
  Transform(values);
  std::vector<double> power(kTransform / 2);
  std::transform(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(power.size()), power.begin(),
                 [](const Complex& value) { return std::norm(value); });
  return power;
}

struct Peak {
  double hertz = 0.0;
  double power = 0.0;
};

/// The strongest line within half a semitone, with its maximum interpolated by a parabola through three logarithms.
Peak FindPeak(const std::vector<double>& power, double hertz) {
  const double bins = static_cast<double>(kTransform) / kRate;
  const auto first = static_cast<std::size_t>(hertz * std::exp2(-0.5 / 12.0) * bins);
  const auto last = static_cast<std::size_t>(hertz * std::exp2(0.5 / 12.0) * bins) + 1;
  const auto top = std::max_element(power.begin() + static_cast<std::ptrdiff_t>(first),
                                    power.begin() + static_cast<std::ptrdiff_t>(last));
  const double left = std::log(*std::prev(top));
  const double middle = std::log(*top);
  const double right = std::log(*std::next(top));
  const double shift = 0.5 * (left - right) / (left - 2.0 * middle + right);
  return {(static_cast<double>(std::distance(power.begin(), top)) + shift) / bins, *top};
}

std::vector<Peak> FindPartials(const std::vector<double>& samples, double hertz, int count) {
  const std::vector<double> power = Spectrum(samples, 0.03, 1.5);
  std::vector<Peak> peaks;
  for (int i = 1; i <= count && i * hertz < 10000.0; ++i) {
    peaks.push_back(FindPeak(power, i * hertz));
  }
  return peaks;
}

double Cents(double hertz, double wanted) { return 1200.0 * std::log2(hertz / wanted); }

/// A second-order section, given by numerator and denominator of its transfer function.
std::vector<double> Filter(const std::vector<double>& in, const double (&b)[3], const double (&a)[3]) {
  std::vector<double> out(in.size());
  for (std::size_t i = 0; i < in.size(); ++i) {
    const double in1 = i > 0 ? in[i - 1] : 0.0;
    const double in2 = i > 1 ? in[i - 2] : 0.0;
    const double out1 = i > 0 ? out[i - 1] : 0.0;
    const double out2 = i > 1 ? out[i - 2] : 0.0;
    out[i] = (b[0] * in[i] + b[1] * in1 + b[2] * in2 - a[1] * out1 - a[2] * out2) / a[0];
  }
  return out;
}

}  // namespace

Sound ReadSound(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  Sound sound;
  sound.bytes.assign(std::istreambuf_iterator<char>(in), {});
  const std::string& bytes = sound.bytes;
  if (bytes.size() < 44 || !bytes.starts_with("RIFF") || bytes.substr(8, 8) != "WAVEfmt ") {
    throw std::runtime_error(path.string() + " is missing or no RIFF/WAVE file");
  }
  sound.riffSize = LittleEndian(bytes, 4, 4);
  sound.formatSize = LittleEndian(bytes, 16, 4);
  sound.formatTag = static_cast<std::uint16_t>(LittleEndian(bytes, 20, 2));
  sound.channels = static_cast<std::uint16_t>(LittleEndian(bytes, 22, 2));
  sound.samplesPerSecond = LittleEndian(bytes, 24, 4);
  sound.bytesPerSecond = LittleEndian(bytes, 28, 4);
  sound.blockAlign = static_cast<std::uint16_t>(LittleEndian(bytes, 32, 2));
  sound.bitsPerSample = static_cast<std::uint16_t>(LittleEndian(bytes, 34, 2));
  const std::size_t data = 20 + sound.formatSize;
  if (bytes.size() < data + 8 || bytes.substr(data, 4) != "data") {
    throw std::runtime_error(path.string() + " has no \"data\" behind \"fmt \"");
  }
  sound.dataSize = LittleEndian(bytes, data + 4, 4);
  const std::size_t end = std::min<std::size_t>(bytes.size(), data + 8 + sound.dataSize);
  for (std::size_t at = data + 8; at + 1 < end; at += 2) {
    sound.samples.push_back(static_cast<std::int16_t>(LittleEndian(bytes, at, 2)));
  }
  return sound;
}

PitchReading MeasurePitch(const std::vector<double>& samples, double hertz) {
  const std::vector<Peak> peaks = FindPartials(samples, hertz, 8);
  double weights = 0.0;
  double sum = 0.0;
  for (std::size_t i = 0; i < peaks.size(); ++i) {
    sum += peaks[i].power * Cents(peaks[i].hertz, hertz * static_cast<double>(i + 1));
    weights += peaks[i].power;
  }
  return {Cents(peaks.front().hertz, hertz), sum / weights};
}

double PlainLevel(const std::vector<double>& samples) {
  const auto window = static_cast<std::size_t>(0.2 * kRate);
  double sum = 0.0;
  double most = 0.0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    sum += samples[i] * samples[i];
    sum -= i >= window ? samples[i - window] * samples[i - window] : 0.0;
    most = std::max(most, sum);
  }
  return 10.0 * std::log10(most / static_cast<double>(window)) - 20.0 * std::log10(kFullScale);
}

double WeightedLevel(const std::vector<double>& samples) {
  // Both stages are the analogue prototypes of BS.1770, converted with the bilinear transform at 44.1 kHz.
  const double shelf = std::tan(std::numbers::pi * 1681.974450955533 / kRate);
  const double shelfLoss = shelf / 0.7071752369554196;
  const double high = 1.584864701130855;
  const double band = 1.258720930232562;
  const double low = std::tan(std::numbers::pi * 38.13547087602444 / kRate);
  const double lowLoss = low / 0.5003270373238773;
  const std::vector<double> lifted = Filter(
      samples,
      {high + band * shelfLoss + shelf * shelf, 2.0 * (shelf * shelf - high), high - band * shelfLoss + shelf * shelf},
      {1.0 + shelfLoss + shelf * shelf, 2.0 * (shelf * shelf - 1.0), 1.0 - shelfLoss + shelf * shelf});
  const double lowScale = 1.0 + lowLoss + low * low;
  return PlainLevel(Filter(lifted, {lowScale, -2.0 * lowScale, lowScale},
                           {lowScale, 2.0 * (low * low - 1.0), 1.0 - lowLoss + low * low}));
}

double DecaySeconds(const std::vector<double>& samples) {
  std::vector<double> energy(samples.size() + 1);
  for (std::size_t i = samples.size(); i-- > 0;) {
    energy[i] = energy[i + 1] + samples[i] * samples[i];
  }
  double count = 0.0;
  double sumTime = 0.0;
  double sumLevel = 0.0;
  double sumSquare = 0.0;
  double sumProduct = 0.0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double level = 10.0 * std::log10(energy[i] / energy[0]);
    if (level > -5.0) {
      continue;
    }
    if (level < -35.0) {
      break;
    }
    const double time = static_cast<double>(i) / kRate;
    count += 1.0;
    sumTime += time;
    sumLevel += level;
    sumSquare += time * time;
    sumProduct += time * level;
  }
  return -60.0 * (count * sumSquare - sumTime * sumTime) / (count * sumProduct - sumTime * sumLevel);
}

double WorstClick(const std::vector<double>& sound, double attackSeconds) {
  constexpr std::size_t kBlock = 44;
  constexpr std::size_t kAround = 25;
  std::vector<double> samples = sound;
  samples.insert(samples.end(), 2 * kBlock, 0.0);  // the silence after the last sample
  std::vector<double> bends;
  for (auto from = static_cast<std::size_t>(attackSeconds * kRate); from + kBlock + 1 < samples.size();
       from += kBlock) {
    double most = 0.0;
    for (std::size_t i = from; i < from + kBlock; ++i) {
      most = std::max(most, std::abs(samples[i + 1] - 2.0 * samples[i] + samples[i - 1]));
    }
    bends.push_back(most);
  }
  double worst = 0.0;
  for (std::size_t i = 0; i < bends.size(); ++i) {
    double around = 8.0;  // in 16-bit steps: below this, rounding causes second differences
    for (std::size_t j = i > kAround ? i - kAround : 0; j < std::min(bends.size(), i + kAround + 1); ++j) {
      around = j + 1 < i || j > i + 1 ? std::max(around, bends[j]) : around;
    }
    worst = std::max(worst, bends[i] / around);
  }
  return worst;
}

double Brightness(const std::vector<double>& samples, double fromSeconds, double seconds) {
  const std::vector<double> power = Spectrum(samples, fromSeconds, seconds);
  double sum = 0.0;
  double weights = 0.0;
  for (std::size_t i = 0; i < power.size(); ++i) {
    const double amplitude = std::sqrt(power[i]);
    sum += amplitude * static_cast<double>(i) * kRate / static_cast<double>(kTransform);
    weights += amplitude;
  }
  return sum / weights;
}

}  // namespace tonalith::sounds
