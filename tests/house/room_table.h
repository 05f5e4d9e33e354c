// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The table docs/rooms.tsv as a value: which room may use which. A row that does not have six columns, repeats a room
// or uses a room that is not above it throws std::runtime_error with the row; so the arrows have no cycles.

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

  /// The room that contains this path, relative to the root of the project: the one with the deepest folder, or null.
  [[nodiscard]] const Room* OfFile(const Path& file) const;
  [[nodiscard]] const Room* OfTarget(const std::string& target) const;
  [[nodiscard]] const Room* Named(const std::string& name) const;

 private:
  std::vector<Room> rooms_;
};

/// Whether `user` may use `used`; a room may use itself.
bool MayUse(const Room& user, const Room& used);

}  // namespace tonalith::house
