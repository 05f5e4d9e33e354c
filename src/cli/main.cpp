// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <csignal>
#include <string>
#include <vector>

#include "cli/command_line.h"

int main(int argc, char* argv[]) {
  // A write to a closed pipe or beyond the file size limit has to fail; the signals would end the program.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return tonalith::cli::WriteOutcome(tonalith::cli::RunCommandLine(arguments, tonalith::cli::FindProgramFolders()));
}
