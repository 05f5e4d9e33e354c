// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A text of a record, limited for display. Other programs can write texts of any length into a library, and laying out
// megabytes takes many seconds. The record is not changed. Any thread.

#pragma once

#include <QString>
#include <cstddef>
#include <string_view>

namespace tonalith::windows {

/// UTF-8 text, cut to `longest` characters; a cut text ends in an ellipsis.
QString ShownText(std::string_view text, std::size_t longest);

}  // namespace tonalith::windows
