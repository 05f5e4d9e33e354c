// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Builds RIFF files for tests from parts: every size can be false, every chunk can be left out.

#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <optional>
#include <string_view>
#include <vector>

namespace tonalith::testing {

struct Bytes : std::vector<std::byte> {
  using vector::vector;
};

inline Bytes operator+(Bytes left, const Bytes& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

/// The `size` lowest bytes of a number, little-endian; zeros after the eighth.
inline Bytes Number(std::uint64_t value, std::size_t size) {
  Bytes bytes;
  for (std::size_t i = 0; i < size; ++i)
    bytes.push_back(static_cast<std::byte>(i < 8 ? (value >> (8 * i)) & 0xFFU : 0U));
  return bytes;
}

inline Bytes Text(std::string_view text) {
  Bytes bytes;
  for (const char character : text) bytes.push_back(static_cast<std::byte>(character));
  return bytes;
}

inline Bytes Chunk(std::string_view id, const Bytes& payload, std::optional<std::uint32_t> claimed = std::nullopt) {
  Bytes chunk = Text(id) + Number(claimed.value_or(static_cast<std::uint32_t>(payload.size())), 4) + payload;
  if (payload.size() % 2 != 0) chunk.push_back(std::byte{0});
  return chunk;
}

inline Bytes Riff(const Bytes& chunks, std::optional<std::uint32_t> claimed = std::nullopt,
                  std::string_view form = "WAVE", std::string_view id = "RIFF") {
  return Chunk(id, Text(form) + chunks, claimed);
}

struct Format {
  std::uint16_t tag = 1;
  std::uint16_t channels = 1;
  std::uint32_t rate = 44100;
  std::uint16_t bits = 16;
};

/// The 16 bytes of a plain format record.
inline Bytes PlainRecord(const Format& format) {
  const auto align = static_cast<std::uint16_t>(format.channels * format.bits / 8);
  return Number(format.tag, 2) + Number(format.channels, 2) + Number(format.rate, 4) +
         Number(std::uint64_t{format.rate} * align, 4) + Number(align, 2) + Number(format.bits, 2);
}

/// The 40 bytes of an extensible record for samples with the format's tag.
inline Bytes ExtensibleRecord(const Format& format) {
  Format outer = format;
  outer.tag = 0xFFFE;
  return PlainRecord(outer) + Number(22, 2) + Number(format.bits, 2) + Number(3, 4) + Number(format.tag, 2) +
         Number(0x000000100000, 6) + Number(0x719B3800AA000080, 8);
}

inline Bytes Wave(const Format& format, const Bytes& samples) {
  return Riff(Chunk("fmt ", PlainRecord(format)) + Chunk("data", samples));
}

/// One sample, `value` between -1 and 1.
inline Bytes Sample(const Format& format, double value) {
  if (format.tag == 3) {
    const auto number = static_cast<float>(value);
    std::uint32_t bits = 0;
    static_assert(sizeof bits == sizeof number);
    __builtin_memcpy(&bits, &number, sizeof bits);
    return Number(bits, 4);
  }
  if (format.bits == 8) return Number(static_cast<std::uint64_t>(std::lround(127.5 + 127.5 * value)), 1);
  const double top = std::ldexp(1.0, format.bits - 1) - 1;
  return Number(static_cast<std::uint64_t>(std::llround(value * top)), format.bits / 8U);
}

/// A sine of that pitch (hertz), length (seconds) and amplitude (1 is full scale), the same in all channels.
inline Bytes Sine(const Format& format, double pitch, double seconds, double height) {
  Bytes samples;
  const auto frames = static_cast<std::size_t>(seconds * format.rate);
  for (std::size_t frame = 0; frame < frames; ++frame) {
    const double angle = 2 * std::numbers::pi * pitch * static_cast<double>(frame) / format.rate;
    const Bytes sample = Sample(format, height * std::sin(angle));
    for (int channel = 0; channel < format.channels; ++channel) {
      samples.insert(samples.end(), sample.begin(), sample.end());
    }
  }
  return samples;
}

}  // namespace tonalith::testing
