// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "synth/wav_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tonalith::synth {
namespace {

void Put(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) {
    bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
  }
}

}  // namespace

std::string WavFile(std::span<const double> samples) {
  constexpr std::uint32_t kRate = 44100;
  constexpr std::uint32_t kSampleBytes = 2;
  const auto dataBytes = static_cast<std::uint32_t>(samples.size() * kSampleBytes);
  std::string bytes;
  bytes.reserve(44 + dataBytes);
  bytes += "RIFF";
  Put(bytes, 36 + dataBytes, 4);
  bytes += "WAVEfmt ";
  Put(bytes, 16, 4);
  Put(bytes, 1, 2);  // PCM
  Put(bytes, 1, 2);  // channels
  Put(bytes, kRate, 4);
  Put(bytes, kRate * kSampleBytes, 4);
  Put(bytes, kSampleBytes, 2);
  Put(bytes, 8 * kSampleBytes, 2);
  bytes += "data";
  Put(bytes, dataBytes, 4);
  for (const double sample : samples) {
    const long step = std::lround(std::clamp(sample, -1.0, 1.0) * 32767.0);
    Put(bytes, static_cast<std::uint32_t>(step), kSampleBytes);
  }
  return bytes;
}

}  // namespace tonalith::synth
