// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Kills the program at random moments while somebody saves in it, again and again on the same folder, and holds the
// library against what was reported: sound, with everything that was held for saved, and the one operation that was
// under way wholly there or not at all. What a kill leaves beside the library stays for the next start. Parent process.

#pragma once

#include "stress/options.h"

namespace tonalith::stress {

int RunKills(const Options& options);

}  // namespace tonalith::stress
