// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/app_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "support/temp_folder.h"
#include "voice/scale_note.h"

namespace tonalith::app {
namespace {

namespace fs = std::filesystem;

constexpr unsigned kUnprivileged = 65534;
constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

void Write(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path) << text;
}

std::string Read(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

/// Runs `step` in a child process of an ordinary user, since root ignores permissions. Returns its exit code.
template <class Step>
int AsOrdinaryUser(Step step) {
  const pid_t child = fork();
  if (child == 0) {
    if (getuid() == 0 && (setgid(kUnprivileged) != 0 || setuid(kUnprivileged) != 0)) _exit(99);
    try {
      _exit(step());
    } catch (const std::exception& failure) {
      std::fprintf(stderr, "%s\n", failure.what());
      _exit(97);
    }
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 98;
}

class AppFolder : public testing::Test {
 protected:
  AppFolder() {
    Write(program_ / "TonalithDB97.mdb", "shipped");
    Write(program_ / "Octaves" / "4.wav", "low E");
    fs::create_directories(home_);
    for (const fs::path& path : {temp_.Path(), home_}) fs::permissions(path, fs::perms::all);
  }
  void MakeProgramReadOnly() {
    for (const fs::path& path : {program_, program_ / "Octaves", program_ / "TonalithDB97.mdb"}) {
      fs::permissions(path, kAnyWrite, fs::perm_options::remove);
    }
  }
  [[nodiscard]] ProgramFolders Folders() const { return {program_, program_, home_}; }

  tests::TempFolder temp_;
  fs::path program_ = temp_.Path() / "program";
  fs::path home_ = temp_.Path() / "home";
};

TEST_F(AppFolder, IsTheProgramsFolderIfItIsWritable) {
  EXPECT_EQ(ResolveAppFolder(Folders()), program_);
  EXPECT_FALSE(fs::exists(home_ / "tonalith"));
}

TEST_F(AppFolder, ReadOnlyProgramFolderIsCopiedToAUserFolder) {
  MakeProgramReadOnly();
  EXPECT_EQ(AsOrdinaryUser([&] { return ResolveAppFolder(Folders()) == home_ / "tonalith" ? 0 : 1; }), 0);
  EXPECT_EQ(Read(home_ / "tonalith" / "TonalithDB97.mdb"), "shipped");
  EXPECT_EQ(Read(home_ / "tonalith" / "Octaves" / "4.wav"), "low E");
}

TEST_F(AppFolder, SecondStartKeepsTheDatabaseAndAddsMissingFiles) {
  MakeProgramReadOnly();
  Write(home_ / "tonalith" / "TonalithDB97.mdb", "the user's own scales");
  fs::permissions(home_ / "tonalith", fs::perms::all);
  EXPECT_EQ(AsOrdinaryUser([&] { return ResolveAppFolder(Folders()).empty() ? 1 : 0; }), 0);
  EXPECT_EQ(Read(home_ / "tonalith" / "TonalithDB97.mdb"), "the user's own scales");
  EXPECT_TRUE(fs::exists(home_ / "tonalith" / "Octaves" / "4.wav"));
}

TEST_F(AppFolder, CopyOfAReadOnlyDatabaseIsWritable) {
  MakeProgramReadOnly();
  AsOrdinaryUser([&] { return ResolveAppFolder(Folders()).empty() ? 1 : 0; });
  const int result =
      AsOrdinaryUser([&] { return ::access((home_ / "tonalith" / "TonalithDB97.mdb").c_str(), W_OK) == 0 ? 0 : 1; });
  EXPECT_EQ(result, 0);
}

/// An installation: the program in one folder, its content in another. The program must not write to either.
class Installation : public AppFolder {
 protected:
  Installation() {
    Write(bin_ / "tonalith", "the program");
    Write(shared_ / "TonalithDB97.mdb", "shipped");
    Write(shared_ / "TLHELP.chm", "help of today");
    Write(shared_ / "DataPacks" / "jazz.mdb", "pack of today");
    Write(shared_ / "Audio" / "0.wav", "C");
  }
  fs::path Resolve() { return ResolveAppFolder({bin_, FindContentFolder(bin_), home_}); }
  /// Installs a newer version of a file.
  static void Upgrade(const fs::path& path, const std::string& text) {
    const fs::file_time_type before = fs::last_write_time(path);
    Write(path, text);
    fs::last_write_time(path, before + std::chrono::hours(1));
  }

  fs::path bin_ = temp_.Path() / "usr" / "bin";
  fs::path shared_ = temp_.Path() / "usr" / "share" / "tonalith";
  fs::path own_ = home_ / "tonalith";
};

TEST_F(Installation, ContentIsInTheProgramsFolderOrInTheSharedFolder) {
  EXPECT_EQ(FindContentFolder(bin_), shared_);
  EXPECT_EQ(FindContentFolder(program_), program_);
  EXPECT_EQ(FindContentFolder(temp_.Path() / "nowhere" / "bin"), temp_.Path() / "nowhere" / "bin");
}

TEST_F(Installation, UsesAUserFolderEvenIfTheProgramsFolderIsWritable) {
  EXPECT_EQ(Resolve(), own_);
  EXPECT_EQ(Read(own_ / "TonalithDB97.mdb"), "shipped");
  EXPECT_FALSE(fs::exists(bin_ / "TonalithDB97.mdb"));
}

TEST_F(Installation, NewerOneReplacesTheHelpButNoUserData) {
  Resolve();
  Write(own_ / "TonalithDB97.mdb", "the user's own scales");
  fs::remove(own_ / "DataPacks" / "jazz.mdb");
  Write(own_ / "DataPacks" / "world.mdb", "the user's own pack");
  Write(own_ / "Audio" / "0.wav", "the user's own C");
  for (const char* const name : {"TonalithDB97.mdb", "TLHELP.chm", "DataPacks/jazz.mdb", "Audio/0.wav"}) {
    Upgrade(shared_ / name, "of tomorrow");
  }
  Write(shared_ / "DataPacks" / "world.mdb", "of tomorrow");
  Resolve();
  EXPECT_EQ(Read(own_ / "TonalithDB97.mdb"), "the user's own scales");
  EXPECT_EQ(Read(own_ / "Audio" / "0.wav"), "the user's own C");
  EXPECT_EQ(Read(own_ / "TLHELP.chm"), "of tomorrow");
  EXPECT_FALSE(fs::exists(own_ / "DataPacks" / "jazz.mdb")) << "deleted by the user";
  EXPECT_EQ(Read(own_ / "DataPacks" / "world.mdb"), "the user's own pack");
}

TEST_F(Installation, NewerOneReplacesOnlyUnchangedRecordings) {
  const std::string today = voice::RenderScaleNote(60);
  const std::string tomorrow = voice::RenderScaleNote(62);
  for (const char* const name : {"0.wav", "1.wav", "2.wav", "3.wav"}) Write(shared_ / "Audio" / name, today);
  Resolve();
  std::string changed = today;
  changed[1000] = static_cast<char>(changed[1000] ^ 1);
  Write(own_ / "Audio" / "1.wav", changed);
  fs::remove(own_ / "Audio" / "2.wav");
  for (const char* const name : {"0.wav", "1.wav", "2.wav"}) Upgrade(shared_ / "Audio" / name, tomorrow);
  const fs::file_time_type old = fs::last_write_time(shared_ / "Audio" / "1.wav") - std::chrono::hours(10);
  fs::last_write_time(own_ / "Audio" / "1.wav", old);
  Resolve();
  EXPECT_TRUE(Read(own_ / "Audio" / "0.wav") == tomorrow);
  EXPECT_TRUE(Read(own_ / "Audio" / "1.wav") == changed) << "changed by the user, though older";
  EXPECT_FALSE(fs::exists(own_ / "Audio" / "2.wav")) << "deleted by the user";
  EXPECT_TRUE(Read(own_ / "Audio" / "3.wav") == today);
  EXPECT_FALSE(fs::exists(own_ / "Audio" / "0.wav.part"));
}

TEST_F(Installation, OneOfTheSameAgeKeepsTheRecordings) {
  Write(shared_ / "Audio" / "0.wav", voice::RenderScaleNote(60));
  Resolve();
  const std::string copy = voice::RenderScaleNote(62);
  Write(own_ / "Audio" / "0.wav", copy);
  fs::last_write_time(own_ / "Audio" / "0.wav", fs::last_write_time(shared_ / "Audio" / "0.wav"));
  Resolve();
  EXPECT_TRUE(Read(own_ / "Audio" / "0.wav") == copy);
}

TEST_F(Installation, HelpThatCannotBeReplacedDoesNotPreventTheStart) {
  Resolve();
  Upgrade(shared_ / "TLHELP.chm", "of tomorrow");
  fs::permissions(own_, kAnyWrite, fs::perm_options::remove);
  EXPECT_EQ(AsOrdinaryUser([&] { return Resolve() == own_ ? 0 : 1; }), 0);
  EXPECT_EQ(Read(own_ / "TLHELP.chm"), "help of today");
}

TEST_F(Installation, SameOneCopiesNothingAgain) {
  Resolve();
  Write(own_ / "TLHELP.chm", "changed by the user");
  Resolve();
  EXPECT_EQ(Read(own_ / "TLHELP.chm"), "changed by the user");
}

TEST_F(Installation, PartialCopiesOfAnInterruptedStartAreReplaced) {
  Write(own_ / "TonalithDB97.mdb.part", "hal");
  Write(own_ / "Audio.part" / "0.wav", "hal");
  EXPECT_EQ(Resolve(), own_);
  EXPECT_EQ(Read(own_ / "TonalithDB97.mdb"), "shipped");
  EXPECT_EQ(Read(own_ / "Audio" / "0.wav"), "C");
  for (const char* const name : {"TonalithDB97.mdb.part", "Audio.part"}) EXPECT_FALSE(fs::exists(own_ / name)) << name;
}

TEST_F(Installation, HelpOfTheSameAgeIsNotCopiedAgain) {
  Resolve();
  const fs::file_time_type installed = fs::last_write_time(shared_ / "TLHELP.chm");
  ASSERT_EQ(fs::last_write_time(own_ / "TLHELP.chm"), installed);
  Write(own_ / "TLHELP.chm", "the copy");
  fs::last_write_time(own_ / "TLHELP.chm", installed);
  Resolve();
  EXPECT_EQ(Read(own_ / "TLHELP.chm"), "the copy");
}

TEST_F(AppFolder, FailureToCreateTheUserFolderNamesThePath) {
  MakeProgramReadOnly();
  fs::permissions(home_, kAnyWrite, fs::perm_options::remove);
  const int result = AsOrdinaryUser([&] {
    try {
      ResolveAppFolder(Folders());
      return 1;
    } catch (const std::exception& failure) {
      return std::string(failure.what()).find((home_ / "tonalith").string()) != std::string::npos ? 0 : 2;
    }
  });
  EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace tonalith::app
