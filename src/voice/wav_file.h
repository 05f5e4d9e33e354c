// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Encodes one sound as a WAV file: RIFF/WAVE, plain format record of 16 bytes, PCM, one channel, 44.1 kHz, 16 bit.
// Samples are rounded and not dithered, so that silence stays silent. An optional chunk after the samples contains
// their checksum, by which the program recognises its own unchanged recordings.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tonalith::voice {

/// The format of the samples.
inline constexpr std::uint32_t kWavRate = 44100;
inline constexpr std::uint16_t kWavBits = 16;

/// The code of the checksum chunk. Its payload is the Checksum of the samples' bytes, little-endian.
inline constexpr std::string_view kChecksumChunk = "tlth";
inline constexpr std::uint32_t kChecksumSize = 8;

enum class ChecksumChunk { kOmit, kInclude };

/// `samples` between -1 and 1; other values are clamped.
std::string WavFile(std::span<const double> samples, ChecksumChunk chunk = ChecksumChunk::kOmit);

}  // namespace tonalith::voice
