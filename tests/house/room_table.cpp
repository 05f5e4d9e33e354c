// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "house/room_table.h"

#include <algorithm>
#include <stdexcept>

namespace tonalith::house {
namespace {

std::vector<std::string> Words(const std::string& cell) {
  return cell == "-" ? std::vector<std::string>() : Split(cell, " ");
}

}  // namespace

RoomTable RoomTable::Read(const Path& file) {
  RoomTable table;
  for (const std::string& line : LinesOf(file)) {
    if (line.rfind('#', 0) == 0 || line.rfind("room\t", 0) == 0) {
      continue;
    }
    const std::vector<std::string> cells = Split(line, "\t");
    if (cells.size() != 6) {
      throw std::runtime_error("not six columns: " + line);
    }
    if (table.Named(cells[0]) != nullptr || table.OfTarget(cells[1]) != nullptr) {
      throw std::runtime_error("stands twice: " + line);
    }
    const Room room{cells[0], cells[1], cells[2], Words(cells[3]), Words(cells[4]), Words(cells[5])};
    for (const std::string& used : room.rooms) {
      if (table.Named(used) == nullptr) {
        throw std::runtime_error(line + " uses a room that does not stand above it");
      }
    }
    table.rooms_.push_back(room);
  }
  return table;
}

const Room* RoomTable::OfFile(const Path& file) const {
  const Room* found = nullptr;
  for (const Room& room : rooms_) {
    const bool contains = file == room.folder || file.generic_string().rfind(room.folder + "/", 0) == 0;
    if (contains && (found == nullptr || room.folder.size() > found->folder.size())) {
      found = &room;
    }
  }
  return found;
}

const Room* RoomTable::OfTarget(const std::string& target) const {
  const auto found =
      std::find_if(rooms_.begin(), rooms_.end(), [&](const Room& room) { return room.target == target; });
  return found == rooms_.end() ? nullptr : &*found;
}

const Room* RoomTable::Named(const std::string& name) const {
  const auto found = std::find_if(rooms_.begin(), rooms_.end(), [&](const Room& room) { return room.name == name; });
  return found == rooms_.end() ? nullptr : &*found;
}

bool MayUse(const Room& user, const Room& used) {
  return user.name == used.name || std::find(user.rooms.begin(), user.rooms.end(), used.name) != user.rooms.end();
}

}  // namespace tonalith::house
