// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Random actions from outside: starts the program again each time its user has closed it, on the same folder, until the
// actions are done; watches for a crash and for a standstill; writes what was found with everything that led to it.
// Parent process, no Qt.

#pragma once

#include "stress/options.h"

namespace tonalith::stress {

/// Random actions, or those of a file. Gives the exit code of the process.
int RunActions(const Options& options);

/// Leaves out whatever the finding of a file does not need, until time is up, and writes the shorter file.
int RunShrink(const Options& options);

}  // namespace tonalith::stress
