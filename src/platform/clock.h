// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The time of day. A port, so that tests can let midnight pass; posix/ reads the local clock. Any thread.

#pragma once

namespace tonalith::platform {

class TimeOfDay {
 public:
  virtual ~TimeOfDay() = default;

  /// Local seconds since midnight, 0 up to 86,400, with fractions.
  [[nodiscard]] virtual double SecondsSinceMidnight() const = 0;
};

}  // namespace tonalith::platform
