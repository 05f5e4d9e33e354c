// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The system clock in the time zone of the process. Any thread.

#pragma once

#include "platform/clock.h"

namespace tonalith::platform {

class LocalTimeOfDay : public TimeOfDay {
 public:
  [[nodiscard]] double SecondsSinceMidnight() const override;
};

}  // namespace tonalith::platform
