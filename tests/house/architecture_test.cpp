// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gmock/gmock.h>

#include <algorithm>

#include "house/room_table.h"

namespace tonalith::house {
namespace {

/// Whether `from` reaches `to` over one arrow or more.
bool Reaches(const RoomTable& table, const std::string& from, const std::string& to) {
  const std::vector<std::string>& used = table.Named(from)->rooms;
  return std::any_of(used.begin(), used.end(),
                     [&](const std::string& room) { return room == to || Reaches(table, room, to); });
}

/// The picture of the rooms: every arrow that does not follow from others.
std::string Picture(const RoomTable& table) {
  std::string picture = "```mermaid\nflowchart TD\n";
  for (const Room& room : table.Rooms()) {
    for (const std::string& used : room.rooms) {
      const bool follows = std::any_of(room.rooms.begin(), room.rooms.end(), [&](const std::string& other) {
        return other != used && Reaches(table, other, used);
      });
      picture += follows ? std::string() : "  " + room.name + " --> " + used + "\n";
    }
  }
  return picture + "```\n";
}

TEST(Architecture, ThePictureOfTheRoomsIsTheTableOfTheRooms) {
  const RoomTable table = RoomTable::Read(ProjectRoot() / "docs/rooms.tsv");
  const std::string page = ReadFile(ProjectRoot() / "docs/architecture.md");
  EXPECT_THAT(page, ::testing::HasSubstr(Picture(table))) << "docs/architecture.md has to show this:\n"
                                                          << Picture(table);
}

TEST(Architecture, APictureLeavesOutArrowsThatFollowFromOthers) {
  const TemporaryTree tree(
      "== rooms.tsv\n"
      "low\tl\tsrc/low\t-\t-\t-\n"
      "high\th\tsrc/high\tlow\t-\t-\n"
      "top\tt\tsrc/top\tlow high\t-\t-\n");
  EXPECT_EQ(Picture(RoomTable::Read(tree.Root() / "rooms.tsv")),
            "```mermaid\nflowchart TD\n  high --> low\n  top --> high\n```\n");
}

}  // namespace
}  // namespace tonalith::house
