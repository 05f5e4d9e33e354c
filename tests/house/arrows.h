// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Compares the arrows of src/ with the table of rooms: every #include line, and every link in every CMakeLists.txt.
// Each function returns one line of text per violation.

#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "house/room_table.h"

namespace tonalith::house {

/// Includes between rooms, includes of foreign headers, and files that are in no room.
std::vector<std::string> WrongIncludes(const RoomTable& table, const Path& root);

/// Links between rooms and to libraries, from tonalith_room or target_link_libraries.
std::vector<std::string> WrongLinks(const RoomTable& table, const Path& root);

/// Unused permissions: rooms and headers that no file includes, libraries that no target links.
std::vector<std::string> UnusedPermissions(const RoomTable& table, const Path& root);

/// The rooms that each room includes, by name, without itself.
std::map<std::string, std::set<std::string>> IncludedRooms(const RoomTable& table, const Path& root);

}  // namespace tonalith::house
