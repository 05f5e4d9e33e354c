// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Stands in for _exit in the test programs of a coverage build (the linker puts it there): the counters are written
// before the process goes, or all that a reading process ran would count as never run. What the process has set itself
// as limits is lifted first; they would keep it from writing.

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
