// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A text of a record as a window shows it. Other programs can write texts of any length into a library, and laying out
// megabytes takes many seconds, so only what a record may hold is shown. The record stays as it is. Pure function, any
// thread; never fails.

#pragma once

#include <QString>
#include <cstddef>
#include <string_view>

namespace tonalith::windows {

/// UTF-8 text, cut to `longest` characters of which the last is an ellipsis if it has more.
QString ShownText(std::string_view text, std::size_t longest);

}  // namespace tonalith::windows
