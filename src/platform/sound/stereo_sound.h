// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A sound in the one form in which mixers take it: interleaved left and right, at the file's own rate, 16 bit where
// that holds everything and floating point otherwise. One channel is doubled, so a mono file sounds at full level on
// both sides. Immutable once made and shared between threads.

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
  /// Frames a second.
  std::uint32_t rate = 44100;
};

/// How the samples of a format lie in memory; nothing for a format that is not played: compressed ones, other sample
/// sizes, more than two channels, rates outside 1 to 384 kHz, and records that contradict themselves.
std::optional<SoundLayout> LayoutOf(const WaveFormat& format);

struct StereoSound {
  std::uint32_t rate = 44100;
  /// Left, right, left, ...; full scale is -32,768 to 32,767 or -1 to 1. Behind the last frame stands one of silence: a
  /// device may go on with what it took last until the period that it mixes is over, which would click.
  std::variant<std::vector<std::int16_t>, std::vector<float>> samples = std::vector<std::int16_t>(2);

  /// Those of the sound, without the silence.
  [[nodiscard]] std::size_t Frames() const;
  [[nodiscard]] std::chrono::nanoseconds Duration() const;
};

/// A frame that the bytes do not hold completely is left out; numbers that are none become silence.
StereoSound DecodeSound(const SoundLayout& layout, std::span<const std::byte> bytes);

}  // namespace tonalith::platform
