// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The checksum by which a recording is recognised: 64 bits, FNV-1a (G. Fowler, L. C. Noll and K.-P. Vo). It finds
// changes, it does not protect against forgery. Pure function.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tonalith::voice {

std::uint64_t Checksum(std::span<const std::byte> bytes);

}  // namespace tonalith::voice
