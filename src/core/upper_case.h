// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rule for comparing names without case, used by search, database and import. Converts UTF-8 to upper case, code
// point by code point, so the number of characters does not change (sharp s stays; its capital form becomes sharp s):
// `?` and lists in a search pattern count characters. Letters that differ only in case, such as the two small sigmas
// and the capital one, give the same result. A byte that is not UTF-8 differs from every character.

#pragma once

#include <string>
#include <string_view>

namespace tonalith::core {

[[nodiscard]] std::u32string UpperCase(std::string_view text);

/// As UpperCase, into a buffer that is reused for many texts.
void UpperCaseInto(std::u32string& upper, std::string_view text);

/// Whether every byte of a text is an ASCII character.
[[nodiscard]] bool IsAscii(std::string_view text);

}  // namespace tonalith::core
