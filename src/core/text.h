// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Helpers for UTF-8 text. A returned view is valid as long as the argument.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::core {

/// Removes the blanks (character 32 only) at both ends.
std::string_view Trim(std::string_view text);

/// The characters of a text, each as its UTF-8 bytes. A byte that is not UTF-8 is an entry of its own.
std::vector<std::string_view> Characters(std::string_view text);

/// Whether two texts are equal, ignoring ASCII case.
bool EqualWithoutCase(std::string_view a, std::string_view b);

/// The byte length of the well-formed character at the start of a non-empty text; 0 if there is none.
std::size_t WellFormedLength(std::string_view text);

/// Appends a code point, 0 to 0x10FFFF, to `text` as UTF-8.
void AppendUtf8(std::string& text, char32_t character);

/// The number of entries that Characters returns.
std::size_t CharacterCount(std::string_view text);

}  // namespace tonalith::core
