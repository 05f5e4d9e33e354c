// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Replaces _exit in the test programs of a coverage build (through the linker) and writes the coverage counters first;
// otherwise the lines that a child process ran would not count. Resource limits that the process has set are lifted,
// because they would prevent the writing.

#include <sys/resource.h>

#include <initializer_list>

extern "C" {
void WriteCounters() __asm__("__gcov_dump");
[[noreturn]] void RealExit(int status) __asm__("__real__exit");
[[noreturn]] void CountedExit(int status) __asm__("__wrap__exit");
}

void CountedExit(int status) {
  for (const auto resource : {RLIMIT_AS, RLIMIT_FSIZE}) {
    rlimit limit{};
    if (::getrlimit(resource, &limit) != 0) continue;
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(resource, &limit);
  }
  WriteCounters();
  RealExit(status);
}
