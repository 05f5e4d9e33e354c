// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Measures the processor time and the wake-ups of this process, for tests of idle behaviour.

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

/// The number of times that any thread blocked; each wake-up adds one.
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
