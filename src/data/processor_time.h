// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The processor time of the calling thread. It limits statements on untrusted files; waiting for a slow disk does not
// count. Private to this room. Any thread; never throws.

#pragma once

#include <cstdint>
#include <ctime>

namespace tonalith::data {

inline std::int64_t ProcessorMilliseconds() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1'000'000;
}

}  // namespace tonalith::data
