// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "house/arrows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <stdexcept>

namespace tonalith::house {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

RoomTable ProjectTable() { return RoomTable::Read(ProjectRoot() / "docs/rooms.tsv"); }

constexpr std::string_view kTable =
    "== rooms.tsv\n"
    "low\ttonalith_low\tsrc/low\t-\tSQLiteCpp\tSQLiteCpp/ sqlite3.h\n"
    "high\ttonalith_high\tsrc/high\tlow\tQt6::Widgets\tQ\n"
    "top\ttonalith_top\tsrc/top\tlow high\t-\t-\n"
    "== src/low/low.h\n"
    "#include <vector>\n"
    "== src/high/high.h\n"
    "#include <QWidget>\n";

std::vector<std::string> IncludesOf(const std::string& files) {
  const TemporaryTree tree(std::string(kTable) + files);
  return WrongIncludes(RoomTable::Read(tree.Root() / "rooms.tsv"), tree.Root());
}

std::vector<std::string> LinksOf(const std::string& files) {
  const TemporaryTree tree(std::string(kTable) + files);
  return WrongLinks(RoomTable::Read(tree.Root() / "rooms.tsv"), tree.Root());
}

TEST(Arrows, EveryIncludeOfTheProjectIsInTheTable) {
  EXPECT_THAT(WrongIncludes(ProjectTable(), ProjectRoot()), IsEmpty());
}

TEST(Arrows, EveryLinkOfTheProjectIsInTheTable) { EXPECT_THAT(WrongLinks(ProjectTable(), ProjectRoot()), IsEmpty()); }

TEST(Arrows, EveryPermissionOfTheTableIsUsed) {
  EXPECT_THAT(UnusedPermissions(ProjectTable(), ProjectRoot()), IsEmpty());
}

TEST(Arrows, AnUnusedPermissionIsFound) {
  const TemporaryTree tree(std::string(kTable) +
                           "== src/top/a.cpp\n#include \"low/low.h\"\n"
                           "== src/low/CMakeLists.txt\ntonalith_room(low SOURCES low.cpp LINKS SQLiteCpp)\n");
  EXPECT_THAT(UnusedPermissions(RoomTable::Read(tree.Root() / "rooms.tsv"), tree.Root()),
              ElementsAre("low never includes SQLiteCpp/", "low never includes sqlite3.h", "high never includes low",
                          "high never links Qt6::Widgets", "top never includes high"));
}

TEST(Arrows, CoreDataAndAudioDoNotUseQt) {
  const RoomTable table = ProjectTable();
  for (const char* const name : {"core", "theory", "instrument", "voice", "sandbox", "jet", "data", "audio", "ports"}) {
    const Room* const room = table.Named(name);
    ASSERT_NE(room, nullptr) << name;
    EXPECT_FALSE(std::any_of(room->headers.begin(), room->headers.end(), [](const auto& h) { return h[0] == 'Q'; }));
    EXPECT_FALSE(
        std::any_of(room->libraries.begin(), room->libraries.end(), [](const auto& l) { return l[0] == 'Q'; }));
  }
}

TEST(Arrows, TheSmallWindowsDoNotUseTheMainWindow) {
  const RoomTable table = ProjectTable();
  for (const char* const name : {"editor", "search", "print", "help"}) {
    ASSERT_NE(table.Named(name), nullptr) << name;
    EXPECT_FALSE(MayUse(*table.Named(name), *table.Named("app"))) << name;
  }
}

TEST(Arrows, DownwardOwnAndStandardIncludesAreAllowed) {
  EXPECT_THAT(IncludesOf("== src/high/a.cpp\n"
                         "#include \"high/high.h\"\n"
                         "#include \"high.h\"\n"
                         "#include \"low/low.h\"\n"
                         "#include \"a.moc\"\n"
                         "#include <QLabel>\n"
                         "#include <string_view>\n"
                         "== src/low/b.cpp\n"
                         "#include <SQLiteCpp/Database.h>\n"
                         "#include <sqlite3.h>\n"),
              IsEmpty());
}

TEST(Arrows, AnIncludeOfAHigherRoomIsFound) {
  EXPECT_THAT(IncludesOf("== src/low/a.cpp\n#include <string>\n#include \"high/high.h\"\n"),
              ElementsAre("src/low/a.cpp:2: low may not use high: high/high.h"));
}

TEST(Arrows, AnIncludeOfAHigherRoomByRelativePathIsFound) {
  EXPECT_THAT(IncludesOf("== src/low/a.cpp\n#include \"../high/high.h\"\n"),
              ElementsAre("src/low/a.cpp:1: low may not use high: ../high/high.h"));
}

TEST(Arrows, AForeignHeaderThatIsNotInTheTableIsFound) {
  EXPECT_THAT(
      IncludesOf("== src/low/a.cpp\n#  include <QString>\n#include <sqlite3ext.h>\n"),
      ElementsAre("src/low/a.cpp:1: low may not include QString", "src/low/a.cpp:2: low may not include sqlite3ext.h"));
}

TEST(Arrows, AFileInNoRoomIsFound) {
  EXPECT_THAT(
      IncludesOf("== src/attic/a.h\n#include <string>\n== src/top/b.cpp\n#include \"attic/a.h\"\n"),
      ElementsAre("src/attic/a.h:1: this file stands in no room", "src/top/b.cpp:1: attic/a.h stands in no room"));
}

TEST(Arrows, LinksInTheTableAreAllowed) {
  EXPECT_THAT(LinksOf("== src/low/CMakeLists.txt\n"
                      "tonalith_room(low SOURCES low.cpp LINKS SQLiteCpp)\n"
                      "== src/high/CMakeLists.txt\n"
                      "tonalith_room(high QT\n  LINKS tonalith_low Qt6::Widgets  # comment (with brackets)\n"
                      "  SOURCES high.cpp)\n"
                      "== src/top/CMakeLists.txt\n"
                      "add_library(tonalith_top INTERFACE)\n"
                      "target_link_libraries(tonalith_top INTERFACE tonalith_high tonalith_options)\n"),
              IsEmpty());
}

TEST(Arrows, ALinkToAHigherRoomIsFound) {
  EXPECT_THAT(LinksOf("== src/low/CMakeLists.txt\n"
                      "tonalith_room(low SOURCES low.cpp LINKS tonalith_high)\n"
                      "target_link_libraries(tonalith_low PRIVATE tonalith_top Qt6::Widgets)\n"),
              ElementsAre("src/low/CMakeLists.txt: low may not link tonalith_high",
                          "src/low/CMakeLists.txt: low may not link tonalith_top",
                          "src/low/CMakeLists.txt: low may not link Qt6::Widgets"));
}

TEST(Arrows, ATargetThatIsNoRoomIsFound) {
  EXPECT_THAT(LinksOf("== src/high/CMakeLists.txt\n"
                      "tonalith_room(attic SOURCES a.cpp)\n"
                      "tonalith_room(high SOURCES high.cpp LINKS tonalith_attic)\n"
                      "target_link_libraries(tonalith_low PRIVATE SQLiteCpp)\n"),
              ElementsAre("src/high/CMakeLists.txt: tonalith_attic is no room of this folder",
                          "src/high/CMakeLists.txt: high links tonalith_attic, which is no room",
                          "src/high/CMakeLists.txt: tonalith_low is no room of this folder"));
}

TEST(RoomTable, ReadsTheRoomsOfTheProjectFromTheLowestUp) {
  const std::vector<Room> rooms = ProjectTable().Rooms();
  ASSERT_THAT(rooms, ::testing::Not(IsEmpty()));
  EXPECT_EQ(rooms.front().name, "core");
  EXPECT_THAT(rooms.front().rooms, IsEmpty());
  EXPECT_EQ(rooms.back().name, "main");
}

TEST(RoomTable, ChoosesTheDeepestFolder) {
  const RoomTable table = ProjectTable();
  EXPECT_EQ(table.OfFile("src/platform/clock.h")->name, "ports");
  EXPECT_EQ(table.OfFile("src/platform/qt/clock.h")->name, "platform_qt");
  EXPECT_EQ(table.OfFile("src/app/main.cpp")->name, "main");
  EXPECT_EQ(table.OfFile("src/app/main.h")->name, "app");
  EXPECT_EQ(table.OfFile("src/elsewhere/clock.h"), nullptr);
}

void ReadTable(const std::string& rows) {
  const TemporaryTree tree("== rooms.tsv\n" + rows);
  static_cast<void>(RoomTable::Read(tree.Root() / "rooms.tsv"));
}

TEST(RoomTable, RefusesACycleADuplicateRoomAndAShortRow) {
  EXPECT_THROW(ReadTable("a\tt_a\tsrc/a\tb\t-\t-\nb\tt_b\tsrc/b\ta\t-\t-\n"), std::runtime_error);
  EXPECT_THROW(ReadTable("a\tt_a\tsrc/a\t-\t-\t-\na\tt_b\tsrc/b\t-\t-\t-\n"), std::runtime_error);
  EXPECT_THROW(ReadTable("a\tt_a\tsrc/a\t-\t-\n"), std::runtime_error);
  EXPECT_NO_THROW(ReadTable("a\tt_a\tsrc/a\t-\t-\t-\n"));
}

}  // namespace
}  // namespace tonalith::house
