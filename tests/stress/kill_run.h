// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Kills the program at random moments while a worker saves scales, again and again on the same folder. The library must
// then be intact and must contain all reported operations; the pending operation is stored completely or not at all. A
// hot journal stays for the next start. Runs in the parent process.

#pragma once

#include "stress/options.h"

namespace tonalith::stress {

int RunKills(const Options& options);

}  // namespace tonalith::stress
