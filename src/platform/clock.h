// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The local time of day, as a port so that tests can simulate midnight.

#pragma once

namespace tonalith::platform {

class TimeOfDay {
 public:
  virtual ~TimeOfDay() = default;

  /// Local seconds since midnight, 0 to 86,400, with fractions.
  [[nodiscard]] virtual double SecondsSinceMidnight() const = 0;
};

}  // namespace tonalith::platform
