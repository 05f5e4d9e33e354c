// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Paths as texts, the way the program joins and judges them. Pure functions; any thread; never fail.

#pragma once

#include <filesystem>
#include <string_view>

namespace tonalith::core {

inline constexpr char kPathSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// Whether a path begins with two separators of either kind. A share behind a drive letter or a mount is not detected.
[[nodiscard]] constexpr bool IsNetworkPath(std::string_view path) {
  const auto isSeparator = [](char c) { return c == '/' || c == '\\'; };
  return path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1]);
}

}  // namespace tonalith::core
