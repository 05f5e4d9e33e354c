// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Parses a note name as people type it: more than the exact sharp names that the program uses.

#pragma once

#include <optional>
#include <string_view>

#include "core/note_model.h"

namespace tonalith::core {

/// The note of a typed text (UTF-8), or nullopt. Case and blanks are ignored. Accepts the letters A to G with one sharp
/// (`#`, the sharp sign, "sharp") or flat (`b`, the flat sign, "flat"), and the German names (H, Fis, Es). B alone is
/// the English B.
std::optional<NoteNumber> NoteOfTypedText(std::string_view text);

}  // namespace tonalith::core
