// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The name of the music font and its codes for the glyphs of the staff.

#pragma once

#include <string_view>

namespace tonalith::paint {

inline constexpr std::string_view kMusicFontName = "Maestro";
inline constexpr char kTrebleClef = 38;
inline constexpr char kWholeNote = 119;
inline constexpr char kSharp = 73;

}  // namespace tonalith::paint
