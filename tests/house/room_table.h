// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The table docs/rooms.tsv in memory: which room may use which. Read once, then a plain value. A row that does not have
// six columns, names a room twice or uses a room that does not stand above it throws std::runtime_error with the row,
// which also keeps the arrows free of circles.

#pragma once

#include <string>
#include <vector>

#include "house/house_files.h"

namespace tonalith::house {

struct Room {
  std::string name;
  std::string target;
  std::string folder;  ///< or one file
  std::vector<std::string> rooms;
  std::vector<std::string> libraries;
  std::vector<std::string> headers;
};

class RoomTable {
 public:
  static RoomTable Read(const Path& file);

  [[nodiscard]] const std::vector<Room>& Rooms() const { return rooms_; }

  /// The room whose folder (or one file) holds this path, relative to the project's root; the deepest, or null.
  [[nodiscard]] const Room* OfFile(const Path& file) const;
  [[nodiscard]] const Room* OfTarget(const std::string& target) const;
  [[nodiscard]] const Room* Named(const std::string& name) const;

 private:
  std::vector<Room> rooms_;
};

/// Whether `user` may use `used`; a room may always use itself.
bool MayUse(const Room& user, const Room& used);

}  // namespace tonalith::house
