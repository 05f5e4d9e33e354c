// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The WAV file of one sound: RIFF/WAVE, a plain format record of 16 bytes, PCM, one channel, 44.1 kHz, 16 bit. Samples
// are rounded to the nearest step and not dithered, so that silence is silence. A marked file has one more chunk after
// its samples, by which the program recognises a recording of its own that nobody has changed. Pure function; the
// caller writes the bytes.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tonalith::voice {

/// The format of the samples.
inline constexpr std::uint32_t kWavRate = 44100;
inline constexpr std::uint16_t kWavBits = 16;

/// The code of the mark's chunk. Its payload is the Checksum of the samples' bytes, little-endian.
inline constexpr std::string_view kChecksumChunk = "tlth";
inline constexpr std::uint32_t kChecksumSize = 8;

enum class Mark { kNone, kShipped };

/// `samples` between -1 and 1; what lies outside is held at full scale.
std::string WavFile(std::span<const double> samples, Mark mark = Mark::kNone);

}  // namespace tonalith::voice
