// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads rows with very long fields. A text that is too long is cut to one character more than the largest field limit,
// so that it cannot be saved by mistake. Private to this room.

#pragma once

#include <string>

namespace tonalith::data {

/// Maximum bytes of a field in a block of rows. More than the longest description has.
inline constexpr int kLongestFieldInBlock = 64 * 1024;
/// Maximum bytes of a field in a row that is read alone. A name of that length can still be looked up.
inline constexpr int kLongestWholeField = 8 * 1024 * 1024;
/// Maximum bytes of a field that is read partly. A longer field is not read at all.
inline constexpr int kLongestField = 16 * 1024 * 1024;

/// How the fields of a row are read.
enum class FieldForm { kWhole, kCut, kLeftOut };

/// An SQL expression for `field`, a quoted name: the whole content, text that is cut, or dots instead of text.
std::string InForm(FieldForm form, const std::string& field);

}  // namespace tonalith::data
