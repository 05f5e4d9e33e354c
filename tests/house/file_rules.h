// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rules for a source file that its lines show: length, licence lines, the opening paragraph of a header, no work
// markers, short names of tests, no fixed sleeps in tests without a reason. Returns one line of text per violation.
// clang-tidy limits the length of functions.

#pragma once

#include <string>
#include <vector>

#include "house/house_files.h"

namespace tonalith::house {

/// Violations in one file of the project; `file` is relative to `root`. Empty for files that are not source.
std::vector<std::string> ViolationsOf(const Path& root, const Path& file);

/// Violations in all files under `root`.
std::vector<std::string> ViolationsOfAll(const Path& root);

}  // namespace tonalith::house
