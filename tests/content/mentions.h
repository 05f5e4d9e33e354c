// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds the names of other rows in descriptions. A row is named by its plain name, or by its full name if another row
// has the same plain name. Names are matched as complete words and case-sensitively, and the longest match wins:
// "Minor 7 flat 5" is not a mention of "Minor 7".

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "content/scale_library.h"

namespace tonalith::content_tests {

/// The name by which descriptions refer to this row.
const std::string& ReferenceName(const ScaleRow& row);

/// Every row that the text names, in the order of the text.
std::vector<const ScaleRow*> Mentions(std::string_view text);

/// Removes a list such as "A, B and C" from the beginning of the text and returns its rows.
std::vector<const ScaleRow*> TakeNameList(std::string_view& text);

/// The folder of the tables that contain the row: "scales" or "packs/jazz".
std::string FolderOf(const ScaleRow& row);

}  // namespace tonalith::content_tests
