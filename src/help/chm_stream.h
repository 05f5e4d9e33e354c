// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Constants of the stream from the child process that reads a help file: for each object a marker, the lengths of its
// path and of its bytes (8 bytes each, little-endian), the path and the bytes; then the end marker. A stream without
// end marker is incomplete and refused.

#pragma once

#include <cstddef>
#include <cstdint>

namespace tonalith::help {

inline constexpr std::uint8_t kChmObjectMarker = 'O';
inline constexpr std::uint8_t kChmEndMarker = 'E';
inline constexpr std::size_t kChmLengthSize = 8;

}  // namespace tonalith::help
