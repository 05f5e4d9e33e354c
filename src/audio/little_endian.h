// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Converts 2 or 4 little-endian bytes to a number.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tonalith::audio {

constexpr std::uint16_t LittleEndian16(std::span<const std::byte, 2> bytes) {
  return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[0]) | (std::to_integer<unsigned>(bytes[1]) << 8U));
}

constexpr std::uint32_t LittleEndian32(std::span<const std::byte, 4> bytes) {
  return std::uint32_t{LittleEndian16(bytes.first<2>())} |
         (std::uint32_t{LittleEndian16(bytes.subspan<2, 2>())} << 16U);
}

}  // namespace tonalith::audio
