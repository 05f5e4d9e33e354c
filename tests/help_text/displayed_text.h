// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Texts of the program in the form in which the help quotes them.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tonalith::help_text {

/// A caption or message as displayed: without mnemonics (&), with white space collapsed and trimmed.
std::string AsDisplayed(std::string_view text);

/// The fixed parts of a text as displayed, split at line breaks and placeholders (%1). Parts with fewer than two
/// letters, such as a quotation mark, are dropped.
std::vector<std::string> PiecesOf(std::string_view text);

}  // namespace tonalith::help_text
