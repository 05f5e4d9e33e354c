// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The third-party licences: licences, authors and sources of the libraries and fonts that the program uses, compiled in
// from content/notices. Any thread.

#pragma once

#include <QString>

namespace tonalith::app {

/// Returns the text in Markdown, without the comment at its top. Not cached.
[[nodiscard]] QString NoticesText();

}  // namespace tonalith::app
