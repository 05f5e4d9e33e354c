// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What this process has cost so far, for tests that demand sleep.

#pragma once

#include <time.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace tonalith::testing {

/// Processor seconds of all threads.
inline double ProcessorSeconds() {
  timespec used{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
  return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

/// How often any thread went to sleep: each wake-up is one more.
inline long Sleeps() {
  long sleeps = 0;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    std::ifstream status(task.path() / "status");
    for (std::string word; status >> word;) {
      if (word != "voluntary_ctxt_switches:") continue;
      long count = 0;
      status >> count;
      sleeps += count;
    }
  }
  return sleeps;
}

}  // namespace tonalith::testing
