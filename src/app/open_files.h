// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Checks at the start that the program can open enough files. Without free descriptors the libraries for windows and
// fonts abort or hang. Call before other threads run; never throws.

#pragma once

namespace tonalith::app {

/// The idle program has 13 files open, and up to 17 while it reads packs. The others are for connections that a desktop
/// adds: input method, session, clipboard.
inline constexpr int kNeededOpenFiles = 32;

/// Whether kNeededOpenFiles files can be opened in addition to those that the process has inherited. Raises the soft
/// limit if it is too low and the hard limit allows it.
[[nodiscard]] bool RaiseOpenFiles();

/// Writes the reason and the limit to the standard error stream, since no window can be opened.
void ReportTooFewOpenFiles();

}  // namespace tonalith::app
