// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads a note name as people type it. This is wider than the exact sharp names that the program itself uses. Pure
// function.

#pragma once

#include <optional>
#include <string_view>

#include "core/note_model.h"

namespace tonalith::core {

/// The note that a typed text (UTF-8) means; nothing for any other text. Case and blanks do not matter. Understood are
/// the letters A to G, one sharp (`#`, the sharp sign, "sharp") or flat (`b`, the flat sign, "flat"), and the German
/// names (H, Fis, Es). B alone is the English B.
std::optional<NoteNumber> NoteOfTypedText(std::string_view text);

}  // namespace tonalith::core
