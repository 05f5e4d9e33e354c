// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Checks at the start that the system lets the program open enough files. The libraries of windows and fonts abort, or
// wait for ever, when they run out of them. Before there are threads; never throws.

#pragma once

namespace tonalith::app {

/// The program at rest has 13 files open, and up to 17 while it reads packs. The rest is for the connections that a
/// desktop adds: input method, session, clipboard.
inline constexpr int kNeededOpenFiles = 32;

/// Whether kNeededOpenFiles files can be opened in addition to those that the process has inherited. Raises the soft
/// limit if it is too low and the hard limit allows it.
[[nodiscard]] bool RaiseOpenFiles();

/// Writes the reason, with the limit, to the standard error stream: without files there is no window.
void ReportTooFewOpenFiles();

}  // namespace tonalith::app
