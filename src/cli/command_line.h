// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs a command line from its arguments to its output. Reads files and writes none; never throws.

#pragma once

#include <string>
#include <vector>

#include "cli/program_files.h"

namespace tonalith::cli {

struct Outcome {
  /// 0, 1 for "not found" and files that cannot be read, 2 for wrong usage.
  int exitCode = 0;
  /// For the standard output and the standard error stream.
  std::string output;
  std::string error;
};

[[nodiscard]] Outcome RunCommandLine(const std::vector<std::string>& arguments, const ProgramFolders& folders);

/// Writes both and returns the exit code: 1 if the output cannot be written. Reports that, unless its reader has closed
/// the pipe.
int WriteOutcome(const Outcome& outcome);

}  // namespace tonalith::cli
