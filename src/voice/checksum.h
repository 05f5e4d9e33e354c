// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The checksum that identifies a recording: 64 bits, FNV-1a (G. Fowler, L. C. Noll and K.-P. Vo). It detects changes
// but does not protect against forgery.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tonalith::voice {

std::uint64_t Checksum(std::span<const std::byte> bytes);

}  // namespace tonalith::voice
