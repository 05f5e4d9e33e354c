// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Small questions about UTF-8 text that several rooms ask. Pure functions; views into the argument live as long as it.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::core {

/// Without the blanks (character 32 only) at either end.
std::string_view Trim(std::string_view text);

/// The characters of a text, each as its UTF-8 bytes. A byte that is no UTF-8 stands for itself, so nothing is lost.
std::vector<std::string_view> Characters(std::string_view text);

/// Whether two texts are equal without regard to ASCII case.
bool EqualWithoutCase(std::string_view a, std::string_view b);

/// How many bytes the well-formed character at the front of a text that is not empty takes; 0 when there is none.
std::size_t WellFormedLength(std::string_view text);

/// Adds a character, 0 up to 0x10FFFF, to `text` as UTF-8.
void AppendUtf8(std::string& text, char32_t character);

/// The number of entries that Characters would give.
std::size_t CharacterCount(std::string_view text);

}  // namespace tonalith::core
