// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reading rows whose fields may be longer than anything that is worth showing. A longer text is cut to one character
// more than any limit on a field allows, so that nobody takes the piece for a text that may be written. Private to the
// data room; pure functions.

#pragma once

#include <string>

namespace tonalith::data {

/// Bytes of a field that rows are read with, a block at a time. More than the longest description has.
inline constexpr int kLongestFieldInBlock = 64 * 1024;
/// Bytes of a field that a row is read with alone. A name of that length can still be looked up.
inline constexpr int kLongestWholeField = 8 * 1024 * 1024;
/// Bytes of a field, at most, of which a piece is read. A longer one is not read at all.
inline constexpr int kLongestField = 16 * 1024 * 1024;

/// How the fields of a row are read.
enum class FieldForm { kWhole, kCut, kLeftOut };

/// `field`, a quoted name, in that form: as it is, cut, or dots in the place of every text.
std::string InForm(FieldForm form, const std::string& field);

}  // namespace tonalith::data
