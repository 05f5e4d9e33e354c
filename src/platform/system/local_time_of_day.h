// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The system clock in the time zone of the process. Any thread.

#pragma once

namespace tonalith::platform {

/// Local seconds since midnight, 0 to 86,400, with fractions.
[[nodiscard]] double LocalSecondsSinceMidnight();

}  // namespace tonalith::platform
