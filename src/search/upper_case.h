// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Brings UTF-8 text to upper case as a sequence of Unicode characters, so that a comparison ignores the case of every
// letter that has one. One character stays one character (the German sharp s stays itself, and its capital form becomes
// it), because `?` and lists in a pattern count the characters that a name shows. Letters that differ in case only,
// such as the two small sigmas and the capital one, come out the same. A byte that is no UTF-8 stays apart from every
// character. Pure functions.

#pragma once

#include <string>
#include <string_view>

namespace tonalith::search {

[[nodiscard]] std::u32string UpperCase(std::string_view text);

/// The same into a buffer that is used again, for many texts in a row.
void UpperCaseInto(std::u32string& upper, std::string_view text);

}  // namespace tonalith::search
