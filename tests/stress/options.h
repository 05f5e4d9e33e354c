// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The command line of the stress test. Throws std::runtime_error with the usage for an unknown argument.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tonalith::stress {

struct Options {
  enum class Mode { kActions, kReplay, kShrink, kKill };

  Mode mode = Mode::kActions;
  std::filesystem::path stage;
  /// The folder for findings.
  std::filesystem::path out = ".";
  std::filesystem::path script;
  std::uint64_t seed = 1;
  int actions = 10'000;
  int seconds = 24 * 3600;
  int times = 200;
};

Options ParseOptions(int argc, char** argv);

}  // namespace tonalith::stress
