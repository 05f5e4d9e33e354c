// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The one rule by which names are compared without regard to case, in the search, in the guards of the database and in
// the import. It brings UTF-8 text to upper case as a sequence of Unicode characters. One character stays one character
// (the German sharp s stays itself, and its capital form becomes it), because `?` and lists in a pattern count the
// characters that a name shows. Letters that differ in case only, such as the two small sigmas and the capital one,
// come out the same. A byte that is no UTF-8 stays apart from every character. Pure functions.

#pragma once

#include <string>
#include <string_view>

namespace tonalith::core {

[[nodiscard]] std::u32string UpperCase(std::string_view text);

/// The same into a buffer that is used again, for many texts in a row.
void UpperCaseInto(std::u32string& upper, std::string_view text);

/// Whether every byte of a text is an ASCII character.
[[nodiscard]] bool IsAscii(std::string_view text);

}  // namespace tonalith::core
