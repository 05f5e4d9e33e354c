// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gmock/gmock.h>

#include <algorithm>

#include "house/arrows.h"
#include "house/room_table.h"

namespace tonalith::house {
namespace {

using Arrows = std::map<std::string, std::set<std::string>>;

/// Whether a path of arrows leads from `from` to `to`.
bool Reaches(const Arrows& arrows, const std::string& from, const std::string& to) {
  const auto found = arrows.find(from);
  return found != arrows.end() && std::any_of(found->second.begin(), found->second.end(), [&](const std::string& room) {
           return room == to || Reaches(arrows, room, to);
         });
}

/// The diagram of the rooms under `root`: all arrows of their #include lines except those implied by others.
std::string Picture(const RoomTable& table, const Path& root) {
  const Arrows arrows = IncludedRooms(table, root);
  std::string picture = "```mermaid\nflowchart TD\n";
  for (const Room& room : table.Rooms()) {
    const auto found = arrows.find(room.name);
    if (found == arrows.end()) continue;
    for (const std::string& used : found->second) {
      const bool follows = std::any_of(found->second.begin(), found->second.end(), [&](const std::string& other) {
        return other != used && Reaches(arrows, other, used);
      });
      picture += follows ? std::string() : "  " + room.name + " --> " + used + "\n";
    }
  }
  return picture + "```\n";
}

TEST(Architecture, TheDiagramShowsTheIncludesOfTheSources) {
  const std::string picture = Picture(RoomTable::Read(ProjectRoot() / "docs/rooms.tsv"), ProjectRoot());
  EXPECT_THAT(ReadFile(ProjectRoot() / "docs/architecture.md"), ::testing::HasSubstr(picture))
      << "docs/architecture.md has to show this:\n"
      << picture;
}

/// The files outside tests/ that choose the standard instrument.
std::vector<std::string> UsersOfTheStandardNeck(const Path& root) {
  std::vector<std::string> users;
  for (const Path& file : ProjectFiles(root)) {
    if (*file.begin() != "tests" && ReadFile(root / file).find("Neck::Standard()") != std::string::npos) {
      users.push_back(file.generic_string());
    }
  }
  return users;
}

TEST(Architecture, OnlyTheProgramChoosesTheInstrument) {
  EXPECT_THAT(UsersOfTheStandardNeck(ProjectRoot()), ::testing::ElementsAre("src/app/program.cpp", "src/core/neck.cpp"))
      << "pass the instrument on instead";
  const TemporaryTree tree(
      "== src/views/a.cpp\n"
      "core::Neck neck = core::Neck::Standard();\n"
      "== tests/views/a_test.cpp\n"
      "core::Neck neck = core::Neck::Standard();\n");
  EXPECT_THAT(UsersOfTheStandardNeck(tree.Root()), ::testing::ElementsAre("src/views/a.cpp"));
}

TEST(Architecture, ADiagramOmitsArrowsThatOthersImply) {
  const TemporaryTree tree(
      "== rooms.tsv\n"
      "low\tl\tsrc/low\t-\t-\t-\n"
      "high\th\tsrc/high\tlow\t-\t-\n"
      "top\tt\tsrc/top\tlow high\t-\t-\n"
      "== src/low/low.h\n#include <string>\n"
      "== src/high/high.h\n#include \"low/low.h\"\n"
      "== src/top/top.h\n#include \"high/high.h\"\n#include \"low/low.h\"\n");
  EXPECT_EQ(Picture(RoomTable::Read(tree.Root() / "rooms.tsv"), tree.Root()),
            "```mermaid\nflowchart TD\n  high --> low\n  top --> high\n```\n");
}

}  // namespace
}  // namespace tonalith::house
