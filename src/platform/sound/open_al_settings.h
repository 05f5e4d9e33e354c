// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Configures OpenAL Soft through its environment variables: short mixing periods for a low latency, and no output on
// standard error. OpenAL Soft reads them when first used, so call this before, and before the program starts its second
// thread.

#pragma once

namespace tonalith::platform {

/// Sets ALSOFT_CONF to an in-memory file with Tonalith's settings followed by the user's ALSOFT_CONF file (so the
/// user's settings win), and ALSOFT_LOGLEVEL unless it is set. Only the first call has an effect. On failure OpenAL
/// Soft uses its defaults.
void PrepareOpenAl();

}  // namespace tonalith::platform
