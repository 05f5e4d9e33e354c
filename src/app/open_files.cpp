// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/open_files.h"

#include <fcntl.h>
#include <sys/resource.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace tonalith::app {
namespace {

/// The soft limit that most systems set.
constexpr rlim_t kUsualLimit = 1024;

rlimit Limits() {
  rlimit limits{};
  ::getrlimit(RLIMIT_NOFILE, &limits);
  return limits;
}

/// Stops as soon as the result is known: a limit may be a billion.
bool HasFreeDescriptors(rlim_t limit) {
  int found = 0;
  for (rlim_t descriptor = 0; descriptor < limit && found < kNeededOpenFiles; ++descriptor) {
    if (::fcntl(static_cast<int>(descriptor), F_GETFD) < 0 && errno == EBADF) ++found;
  }
  return found >= kNeededOpenFiles;
}

}  // namespace

bool RaiseOpenFiles() {
  rlimit limits = Limits();
  if (HasFreeDescriptors(limits.rlim_cur)) return true;
  const rlim_t wanted = std::min(limits.rlim_max, kUsualLimit);
  if (wanted <= limits.rlim_cur) return false;
  limits.rlim_cur = wanted;
  return ::setrlimit(RLIMIT_NOFILE, &limits) == 0 && HasFreeDescriptors(wanted);
}

void ReportTooFewOpenFiles() {
  std::fprintf(stderr,
               "Tonalith cannot start, because it may have too few open files: the limit is %llu, and %d more than are "
               "open already are needed. Raise the limit, for example with 'ulimit -n 1024', and start again.\n",
               static_cast<unsigned long long>(Limits().rlim_cur), kNeededOpenFiles);
}

}  // namespace tonalith::app
