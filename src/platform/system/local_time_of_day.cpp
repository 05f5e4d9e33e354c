// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/system/local_time_of_day.h"

#include <chrono>
#include <ctime>

namespace tonalith::platform {

double LocalSecondsSinceMidnight() {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  ::localtime_r(&seconds, &local);
  const std::chrono::duration<double> fraction = now - std::chrono::floor<std::chrono::seconds>(now);
  return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + fraction.count();
}

}  // namespace tonalith::platform
