// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Characters as numbers and as UTF-8 for help pages: names and numbers of entities, and the western code page for pages
// that are not UTF-8.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tonalith::help {

/// Appends a character to `text` as UTF-8; an invalid character becomes U+FFFD.
void AppendUtf8(std::string& text, std::uint32_t character);

/// Whether the bytes are well-formed UTF-8.
[[nodiscard]] bool IsUtf8(std::string_view bytes);

/// The character of an entity's name ("eacute") or number ("#233", "#xE9"), without "&" and ";"; 0 for an unknown one.
[[nodiscard]] std::uint32_t EntityCharacter(std::string_view name);

/// Converts a byte of Windows' western code page.
[[nodiscard]] std::uint32_t WesternCharacter(std::uint8_t byte);

/// Converts a page or list to UTF-8: unchanged if it is UTF-8 (with or without byte order mark), else from Windows'
/// western code page. Control characters other than line ends and tabs become blanks.
[[nodiscard]] std::string ToUtf8(std::string_view bytes);

/// Resolves `&name;` and `&#number;`; unknown entities stay as they are.
[[nodiscard]] std::string ResolveEntities(std::string_view text);

}  // namespace tonalith::help
