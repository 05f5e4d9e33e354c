// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What Tonalith asks of OpenAL Soft beyond its interface: short mixing periods, so that a click is heard at once, and
// no text on standard error. OpenAL Soft reads both from the environment when it is first used, so this has to happen
// before, and best before the program starts its second thread. Never fails.

#pragma once

namespace tonalith::platform {

/// Sets ALSOFT_CONF to a list of settings that this process holds in memory, with the contents of the file that
/// ALSOFT_CONF named before behind them (so what the user wrote there wins), and ALSOFT_LOGLEVEL where it is unset. The
/// first call does it, later ones do nothing. Where the system cannot do it, OpenAL Soft keeps its own settings.
void PrepareOpenAl();

}  // namespace tonalith::platform
