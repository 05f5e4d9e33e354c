// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Small questions about UTF-8 text that several rooms ask. Pure functions; views into the argument live as long as it.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tonalith::core {

/// Without the blanks (character 32 only) at either end.
std::string_view Trim(std::string_view text);

/// The characters of a text, each as its UTF-8 bytes. A byte that is no UTF-8 stands for itself, so nothing is lost.
std::vector<std::string_view> Characters(std::string_view text);

/// The number of entries that Characters would give.
std::size_t CharacterCount(std::string_view text);

}  // namespace tonalith::core
