// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Accidentals in typed text: ASCII and Unicode signs. For the parsers of this room.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tonalith::theory {

/// Removes `word` from the beginning of `text`; false if the text begins otherwise.
bool Take(std::string_view& text, std::string_view word);
/// As Take, but ignores the case of ASCII letters; `word` is in lower case.
bool TakeIgnoringCase(std::string_view& text, std::string_view word);

/// Removes one accidental sign and returns its semitones: # b x and the signs of Unicode. Nothing for other text.
[[nodiscard]] std::optional<int> TakeAccidentalSign(std::string_view& text);

/// ASCII signs: "bb" for -2, "" for 0, "##" for 2.
[[nodiscard]] std::string AsciiAccidentals(int alteration);

}  // namespace tonalith::theory
