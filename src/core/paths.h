// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Classification of file paths, from their text only.

#pragma once

#include <filesystem>
#include <string_view>

namespace tonalith::core {

inline constexpr char kPathSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// Whether a path begins with two separators of either kind. A network share under a drive letter or a mount point is
/// not detected.
[[nodiscard]] constexpr bool IsNetworkPath(std::string_view path) {
  const auto isSeparator = [](char c) { return c == '/' || c == '\\'; };
  return path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1]);
}

}  // namespace tonalith::core
