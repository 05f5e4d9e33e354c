// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Special files instead of packs in the folder of packs, and problems with that folder.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "data/pack_disaster_fixture.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class PackPlaceTest : public DataPackImportTest {
 protected:
  static std::string Failed(const std::string& pack, const std::string& why) {
    return std::string("Error importing ").append(pack).append("\n").append(why).append("\n");
  }
  /// The messages of an import by a user without root permissions.
  std::string ShownToNobody(const std::function<void()>& import, fs::perms main = fs::perms::all,
                            fs::perms folder = fs::perms::all) {
    fs::permissions(Main(), main);
    fs::permissions(program_.Folder(), folder);
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return "no pipe";
    const bool wasKilled = IsKilledIn([&] {
      constexpr uid_t kNobody = 65534;
      std::string shown = "cannot become nobody";
      if (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0) {
        try {
          import();
          shown = Shown();
        } catch (const core::Failure& failure) {
          shown = "thrown: " + failure.Description();
        }
      }
      if (::write(ends[1], shown.data(), shown.size()) < 0) ::_exit(2);
    });
    EXPECT_FALSE(wasKilled);
    ::close(ends[1]);
    std::array<char, 4096> text{};
    const ssize_t size = ::read(ends[0], text.data(), text.size());
    ::close(ends[0]);
    return {text.data(), static_cast<std::size_t>(std::max(size, ssize_t{0}))};
  }
};

TEST_F(PackPlaceTest, IgnoresEverythingThatIsNotAFile) {
  fs::create_directory(Packs() + "DataPack_Folder.mdb");
  fs::create_symlink("nowhere", Packs() + "DataPack_Nothing.mdb");
  fs::create_symlink("DataPack_Itself.mdb", Packs() + "DataPack_Itself.mdb");
  fs::create_symlink("DataPack_Folder.mdb", Packs() + "DataPack_FolderLink.mdb");
  ASSERT_EQ(::mkfifo((Packs() + "DataPack_Pipe.mdb").c_str(), 0666), 0);
  fs::create_symlink("DataPack_Pipe.mdb", Packs() + "DataPack_PipeLink.mdb");
  fs::create_symlink("/dev/zero", Packs() + "DataPack_Zero.mdb");
  EXPECT_THAT(InstallAll(), IsEmpty());
  EXPECT_EQ(Shown(), "");
}

TEST_F(PackPlaceTest, RefusesSpecialFilesWithoutWaitingForThem) {
  fs::create_symlink("nowhere", Packs() + "DataPack_A.mdb");
  ExpectRefused(Packs() + "DataPack_A.mdb", "Could not find file '" + Packs() + "DataPack_A.mdb'.");
  ASSERT_EQ(::mkfifo((Packs() + "DataPack_B.mdb").c_str(), 0666), 0);
  ExpectRefused(Packs() + "DataPack_B.mdb", "Unrecognized database format '" + Packs() + "DataPack_B.mdb'.");
  fs::create_symlink("/dev/zero", Packs() + "DataPack_C.mdb");
  ExpectRefused(Packs() + "DataPack_C.mdb", "Unrecognized database format '" + Packs() + "DataPack_C.mdb'.");
  fs::create_symlink("DataPack_D.mdb", Packs() + "DataPack_D.mdb");
  ExpectRefused(Packs() + "DataPack_D.mdb",
                "The file '" + Packs() + "DataPack_D.mdb' cannot be reached: Too many levels of symbolic links.");
}

TEST_F(PackPlaceTest, FollowsALinkToAPack) {
  const std::string pack = program_.Folder() + "/elsewhere.db";
  CreateScaleDatabase(pack);
  RunRaw(pack, kAddScale);
  fs::create_symlink("../elsewhere.db", Packs() + "DataPack_A.mdb");
  EXPECT_THAT(InstallAll(), UnorderedElementsAre(Packs() + "DataPack_A.mdb"));
  EXPECT_EQ(Shown(), Imported(Packs() + "DataPack_A.mdb"));
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales WHERE ScaleName = 'Hora'"), "1");
}

TEST_F(PackPlaceTest, ReportsAnUnreadablePackAndContinues) {
  for (const std::string& pack : {MakePack("DataPack_A.mdb", kAddScale), CopyPack(jet::kJet2000, "DataPack_B.mdb")}) {
    fs::permissions(pack, fs::perms::none);
    EXPECT_EQ(ShownToNobody([&] { Install(pack); }),
              Failed(pack, "The file '" + pack + "' cannot be opened: Permission denied."));
  }
  const std::string readable = MakePack("DataPack_C.mdb", kAddScale);
  fs::permissions(readable, fs::perms::others_read);
  ShownToNobody([&] { InstallAll(); });
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "5");
}

TEST_F(PackPlaceTest, ReadsAReadOnlyPackInAReadOnlyFolder) {
  const std::string pack = MakePack("DataPack_A.mdb", kAddScale);
  const std::string logged = MakePack("DataPack_B.mdb", "PRAGMA journal_mode = WAL; PRAGMA user_version = 1");
  for (const std::string& path : {pack, logged}) {
    fs::permissions(path, fs::perms::others_read);
    EXPECT_EQ(ShownToNobody([&] { Install(path); }), Imported(path));
  }
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "5");
}

TEST_F(PackPlaceTest, ReportsThatTheFolderCannotBeListed) {
  MakePack("DataPack_A.mdb", kAddScale);
  fs::permissions(Packs(), fs::perms::none);
  EXPECT_EQ(ShownToNobody([&] { InstallAll(); }),
            "thrown: The folder '" + Packs() + "' cannot be read: Permission denied.");
  fs::permissions(Packs(), fs::perms::owner_all);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "4");
}

TEST_F(PackPlaceTest, ReportsThatTheMainDatabaseCannotBeWritten) {
  const std::string pack = MakePack("DataPack_A.mdb", kAddScale);
  fs::permissions(pack, fs::perms::others_read);
  const std::string before = ContentOfDatabase(Main());
  for (const bool isFile : {true, false}) {
    EXPECT_EQ(
        ShownToNobody([&] { Install(pack); }, isFile ? fs::perms::others_read : fs::perms::all,
                      isFile ? fs::perms::all : fs::perms::others_read | fs::perms::others_exec),
        "Error importing " + pack + "\nCannot update. The database '" + Main() + "' or its folder is read-only.\n");
  }
  EXPECT_EQ(ContentOfDatabase(Main()), before);
}

TEST_F(PackPlaceTest, FindsNoPacksInAFileInsteadOfTheFolder) {
  fs::remove(Packs());
  std::ofstream(program_.Folder() + "/DataPacks") << "a file";
  EXPECT_THAT(InstallAll(), IsEmpty());
  EXPECT_EQ(Shown(), "");
}

TEST_F(PackPlaceTest, AddsNothingFromTheMainDatabaseItself) {
  const std::string before = ContentOfDatabase(Main());
  fs::create_symlink(Main(), Packs() + "DataPack_A.mdb");
  fs::create_hard_link(Main(), Packs() + "DataPack_B.mdb");
  Install(Packs() + "DataPack_A.mdb");
  Install(Packs() + "DataPack_B.mdb");
  EXPECT_EQ(Shown(), Imported(Packs() + "DataPack_A.mdb") + Imported(Packs() + "DataPack_B.mdb"));
  EXPECT_EQ(ContentOfDatabase(Main()), before);
  ExpectAtRest(Main());
}

TEST_F(PackPlaceTest, ReportsAPackThatAnotherProgramHasLocked) {
  const std::string pack = MakePack("DataPack_A.mdb", kAddScale);
  SQLite::Database other(pack, SQLite::OPEN_READWRITE);
  other.exec("BEGIN EXCLUSIVE");
  ExpectRefused(pack, "Could not use '" + pack + "'; file already in use.");
}

TEST_F(PackPlaceTest, ImportsAPackWithTwoNamesOnlyOnce) {
  MakePack("DataPack_A.mdb", std::string(kAddType) + kAddScale);
  fs::copy_file(Packs() + "DataPack_A.mdb", Packs() + "DataPack_B.mdb");
  CopyPack(jet::kJet2003, "DataPack_C.mdb");
  CopyPack(jet::kJet2003, "DataPack_D.mdb");
  EXPECT_EQ(InstallAll().size(), 4U);
  const std::string once = ContentOfDatabase(Main());
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "275");
  EXPECT_EQ(InstallAll().size(), 4U);
  EXPECT_EQ(ContentOfDatabase(Main()), once);
  EXPECT_EQ(msgBox_.Messages().size(), 8U);
  for (const auto& message : msgBox_.Messages()) EXPECT_EQ(message.style, core::MsgBoxStyle::kInformation);
}

TEST_F(PackPlaceTest, FillsAnEmptyDatabase) {
  RunRaw(Main(), "DELETE FROM Scales; DELETE FROM ScaleTypes");
  const std::string pack = CopyPack(jet::kJet2000, "DataPack_A.mdb");
  const std::string empty = MakePack("DataPack_B.mdb", "");
  EXPECT_EQ(InstallAll().size(), 2U);
  EXPECT_EQ(Ask("SELECT count(*) || ' ' || (SELECT count(*) FROM ScaleTypes) FROM Scales"), "5 2");
  EXPECT_EQ(Ask("SELECT count(*) FROM ScalesQuery"), "5");
}

}  // namespace
}  // namespace tonalith::data
