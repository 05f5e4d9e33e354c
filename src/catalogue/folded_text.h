// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Texts for comparisons that ignore case and accents: upper case, Latin letters without their marks, musical signs as
// # and B. Any bytes are allowed; those that are not UTF-8 differ from every character.

#pragma once

#include <string>
#include <string_view>

namespace tonalith::catalogue {

[[nodiscard]] std::u32string Fold(std::string_view text);

/// As Fold, into a buffer that is reused for many texts.
void FoldInto(std::u32string& folded, std::string_view text);

}  // namespace tonalith::catalogue
