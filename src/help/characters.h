// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Characters as numbers and as UTF-8, as far as pages of help need them: names and numbers of entities, and the western
// code page that pages without an encoding of their own are in. Pure functions; any thread; never fail.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tonalith::help {

/// Adds a character to `text` as UTF-8; what is no character becomes U+FFFD.
void AppendUtf8(std::string& text, std::uint32_t character);

/// Whether the bytes are well-formed UTF-8.
[[nodiscard]] bool IsUtf8(std::string_view bytes);

/// The character of an entity's name ("eacute") or number ("#233", "#xE9"), without its signs; 0 for an unknown one.
[[nodiscard]] std::uint32_t EntityCharacter(std::string_view name);

/// A byte of Windows' western code page as a character.
[[nodiscard]] std::uint32_t WesternCharacter(std::uint8_t byte);

/// Bytes of a page or list as UTF-8: as they are if they are UTF-8 (with or without its mark), and as Windows' western
/// code page otherwise. Control characters other than line ends and tabs become blanks.
[[nodiscard]] std::string ToUtf8(std::string_view bytes);

/// The text with `&name;` and `&#number;` resolved; what is no entity stays as it is written.
[[nodiscard]] std::string ResolveEntities(std::string_view text);

}  // namespace tonalith::help
