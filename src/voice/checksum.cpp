// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "voice/checksum.h"

namespace tonalith::voice {

std::uint64_t Checksum(std::span<const std::byte> bytes) {
  constexpr std::uint64_t kStart = 0xCBF29CE484222325U;
  constexpr std::uint64_t kPrime = 0x100000001B3U;
  std::uint64_t sum = kStart;
  for (const std::byte byte : bytes) sum = (sum ^ std::to_integer<std::uint64_t>(byte)) * kPrime;
  return sum;
}

}  // namespace tonalith::voice
