// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The budgets and habits of a source file that can be read off its lines: length, licence lines, the paragraph that
// opens a header, and no loose ends. The answer is one line of text for each fault; no line means that all is well.
// clang-tidy holds the length of functions. Reads files only; owns nothing.

#pragma once

#include <string>
#include <vector>

#include "house/house_files.h"

namespace tonalith::house {

/// Faults of one file of the project; `file` is relative to `root`. Files that are no source of ours have none.
std::vector<std::string> ViolationsOf(const Path& root, const Path& file);

/// The same for every file under `root`.
std::vector<std::string> ViolationsOfAll(const Path& root);

}  // namespace tonalith::house
