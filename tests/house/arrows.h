// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Compares the arrows of src/ with the table of rooms: every #include line, and every link in every CMakeLists.txt.
// Each function returns one line of text for each fault and an empty list if there is none. Reads files only.

#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "house/room_table.h"

namespace tonalith::house {

/// Includes between rooms, of foreign headers, and of files that no room holds.
std::vector<std::string> WrongIncludes(const RoomTable& table, const Path& root);

/// Links between rooms and to libraries, whether given to tonalith_room or to target_link_libraries.
std::vector<std::string> WrongLinks(const RoomTable& table, const Path& root);

/// What the table permits and nobody uses: rooms and headers that no file includes, libraries that no target links.
std::vector<std::string> UnusedPermissions(const RoomTable& table, const Path& root);

/// The rooms that the files of each room really include, by name, without the room itself.
std::map<std::string, std::set<std::string>> IncludedRooms(const RoomTable& table, const Path& root);

}  // namespace tonalith::house
