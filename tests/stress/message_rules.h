// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Which words the program may say in a stress: all files are whole, the disk has room and nobody else writes, so that
// only what a user can bring about by the controls has a reason. Anything else that a message box says is a Finding.

#pragma once

#include <string>

namespace tonalith::stress {

void CheckMessage(const std::string& text);

/// A pack whose name begins like this is broken on purpose.
inline constexpr const char* kBrokenPack = "DataPack_Broken";

}  // namespace tonalith::stress
