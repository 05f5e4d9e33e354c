// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The command line of the stress. Plain values; a word that is not understood throws std::runtime_error with the
// usage.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tonalith::stress {

struct Options {
  enum class Mode { kActions, kReplay, kShrink, kKill };

  Mode mode = Mode::kActions;
  std::filesystem::path stage;
  /// Where findings go.
  std::filesystem::path out = ".";
  std::filesystem::path script;
  std::uint64_t seed = 1;
  int actions = 10'000;
  int seconds = 24 * 3600;
  int times = 200;
};

Options ParseOptions(int argc, char** argv);

}  // namespace tonalith::stress
