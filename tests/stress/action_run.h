// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs random actions in child processes: starts the program on the same folder again each time its user has closed it,
// until the actions are done. Detects crashes and timeouts; writes each finding with all preceding actions. Runs in the
// parent process, without Qt.

#pragma once

#include "stress/options.h"

namespace tonalith::stress {

/// Runs random actions, or those of a file. Returns the exit code of the process.
int RunActions(const Options& options);

/// Removes actions that are not needed to reproduce the finding of a file, until the time limit; writes the shorter
/// file.
int RunShrink(const Options& options);

}  // namespace tonalith::stress
