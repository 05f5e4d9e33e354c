// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The stream between the process that reads a help file and the program: a mark, for an object the length of its path,
// the length of its bytes (both as 8 bytes, the lowest first), the path and the bytes; at the end one mark that says
// that nothing is missing. A stream without that mark is no file. Constants only.

#pragma once

#include <cstddef>
#include <cstdint>

namespace tonalith::help {

inline constexpr std::uint8_t kChmObjectMarker = 'O';
inline constexpr std::uint8_t kChmEndMarker = 'E';
inline constexpr std::size_t kChmLengthSize = 8;

}  // namespace tonalith::help
