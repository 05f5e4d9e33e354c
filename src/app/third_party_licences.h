// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The notices of what the program is built on: licences, authors, and where the source is. Compiled in from
// content/notices, unpacked at each call and kept by nobody. Any thread; never fails.

#pragma once

#include <QString>

namespace tonalith::app {

/// In Markdown, without the comment at their top.
[[nodiscard]] QString NoticesText();

}  // namespace tonalith::app
