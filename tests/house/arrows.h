// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Holds the arrows of src/ against the table of rooms: every #include line, and every link in every CMakeLists.txt. The
// answer is one line of text for each arrow that the table does not have, naming file, line and what is wrong; no line
// means that all is well. Reads files only; owns nothing.

#pragma once

#include <string>
#include <vector>

#include "house/room_table.h"

namespace tonalith::house {

/// Includes between rooms, of foreign headers, and of files that no room holds.
std::vector<std::string> WrongIncludes(const RoomTable& table, const Path& root);

/// Links between rooms and to libraries, whether given to tonalith_room or to target_link_libraries.
std::vector<std::string> WrongLinks(const RoomTable& table, const Path& root);

}  // namespace tonalith::house
