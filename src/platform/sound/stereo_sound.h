// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A decoded sound: interleaved left and right, at the file's sample rate, 16 bit if that is lossless and floating point
// otherwise. A mono sound is copied to both channels, so it plays at full level. Immutable after decoding and shared
// between threads.

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <variant>
#include <vector>

#include "platform/wave_output.h"

namespace tonalith::platform {

enum class SampleKind { kUnsigned8, kSigned16, kSigned24, kSigned32, kFloat32 };

struct SoundLayout {
  SampleKind kind = SampleKind::kSigned16;
  std::uint16_t channels = 1;
  /// Frames per second.
  std::uint32_t rate = 44100;
};

/// The memory layout of a format; nullopt for a format that is not played: compressed, other sample sizes, more than
/// two channels, rates outside 1 to 384 kHz, and contradictory records.
std::optional<SoundLayout> LayoutOf(const WaveFormat& format);

struct StereoSound {
  std::uint32_t rate = 44100;
  /// Left, right, left, ...; full scale is -32,768 to 32,767 or -1 to 1. One frame of silence follows the last frame: a
  /// device may repeat the last value until the end of the mixing period, which would click.
  std::variant<std::vector<std::int16_t>, std::vector<float>> samples = std::vector<std::int16_t>(2);

  /// Number of frames without the final silence.
  [[nodiscard]] std::size_t Frames() const;
  [[nodiscard]] std::chrono::nanoseconds Duration() const;
};

/// An incomplete last frame is dropped; NaN and infinity become silence.
StereoSound DecodeSound(const SoundLayout& layout, std::span<const std::byte> bytes);

}  // namespace tonalith::platform
