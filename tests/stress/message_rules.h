// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The messages that the program may show in a stress test. All files are intact, the disk has space and no other
// program writes, so only user input can cause a message. Throws a Finding for any other message.

#pragma once

#include <string>

namespace tonalith::stress {

void CheckMessage(const std::string& text);

/// The file name prefix of the packs that are broken on purpose.
inline constexpr const char* kBrokenPack = "DataPack_Broken";

}  // namespace tonalith::stress
