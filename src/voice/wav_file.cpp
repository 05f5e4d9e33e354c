// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "voice/wav_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "voice/checksum.h"

namespace tonalith::voice {
namespace {

void Put(std::string& bytes, std::uint64_t value, unsigned count) {
  for (unsigned i = 0; i < count; ++i) {
    bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
  }
}

}  // namespace

std::string WavFile(std::span<const double> samples, ChecksumChunk chunk) {
  constexpr std::uint32_t kSampleBytes = kWavBits / 8;
  constexpr std::uint32_t kHeaderSize = 44;
  constexpr std::uint32_t kChunkHeaderSize = 8;
  const auto dataBytes = static_cast<std::uint32_t>(samples.size() * kSampleBytes);
  const std::uint32_t checksumBytes = chunk == ChecksumChunk::kInclude ? kChunkHeaderSize + kChecksumSize : 0;
  std::string bytes;
  bytes.reserve(kHeaderSize + dataBytes + checksumBytes);
  bytes += "RIFF";
  Put(bytes, kHeaderSize - kChunkHeaderSize + dataBytes + checksumBytes, 4);
  bytes += "WAVEfmt ";
  Put(bytes, 16, 4);
  Put(bytes, 1, 2);  // PCM
  Put(bytes, 1, 2);  // channels
  Put(bytes, kWavRate, 4);
  Put(bytes, std::uint64_t{kWavRate} * kSampleBytes, 4);
  Put(bytes, kSampleBytes, 2);
  Put(bytes, kWavBits, 2);
  bytes += "data";
  Put(bytes, dataBytes, 4);
  for (const double sample : samples) {
    const long step = std::lround(std::clamp(sample, -1.0, 1.0) * 32767.0);
    Put(bytes, static_cast<std::uint32_t>(step), kSampleBytes);
  }
  if (chunk == ChecksumChunk::kInclude) {
    const std::uint64_t checksum = Checksum(std::as_bytes(std::span(bytes).subspan(kHeaderSize)));
    bytes += kChecksumChunk;
    Put(bytes, kChecksumSize, 4);
    Put(bytes, checksum, kChecksumSize);
  }
  return bytes;
}

}  // namespace tonalith::voice
