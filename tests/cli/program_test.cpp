// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The real program, started as a shell starts it; and where it looks for its files.

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "catalogue/library_fixture.h"
#include "cli/command_line_fixture.h"
#include "cli/program_files.h"

namespace tonalith::cli {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Ended {
  int status = -1;
  std::string output;
};

/// Runs a shell command line in which $P is the program.
Ended Shell(const std::string& line) {
  const std::string command = "P='" + ProgramPath() + "'; " + line;
  FILE* const pipe = ::popen(command.c_str(), "r");
  Ended ended;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) ended.output += static_cast<char>(c);
  ended.status = WEXITSTATUS(::pclose(pipe));
  return ended;
}

/// The same on the shipped library.
Ended Program(const std::string& arguments) { return Shell("\"$P\" --library '" + BuiltLibrary() + "' " + arguments); }

TEST(Program, AnswersOnTheStandardOutput) {
  const Ended ended = Program("show Am7 --json 2>/dev/null");
  EXPECT_EQ(ended.status, 0);
  EXPECT_THAT(ended.output, HasSubstr(R"("notes":["A","C","E","G"])"));
  EXPECT_EQ(Shell("\"$P\" --version").output, "tonalith-cli " TONALITH_VERSION "\n");
}

TEST(Program, ReportsErrorsOnTheStandardErrorStream) {
  const Ended silent = Program("show Doriann 2>/dev/null");
  EXPECT_EQ(silent.status, 1);
  EXPECT_EQ(silent.output, "");
  EXPECT_THAT(Program("show Doriann 2>&1").output, HasSubstr("\"Dorian\""));
  EXPECT_EQ(Program("show 2>/dev/null").status, 2);
}

TEST(Program, HasHelpForEveryCommand) {
  for (const char* const command : {"list", "show", "name", "shapes", "positions", "chords", "instruments"}) {
    const Ended ended = Shell(std::string("\"$P\" ") + command + " --help");
    EXPECT_EQ(ended.status, 0) << command;
    EXPECT_THAT(ended.output, HasSubstr(std::string("tonalith-cli ") + command)) << command;
  }
}

TEST(Program, EndsQuietlyIfItsReaderCloses) {
  EXPECT_EQ(Program("list --json 2>&1 | head -c 10").output.size(), 10U);
  const Ended closed = Program("list 2>&1 >&-");
  EXPECT_EQ(closed.status, 1);
  EXPECT_EQ(closed.output, "tonalith-cli: The answer could not be written: Bad file descriptor.\n");
}

TEST(Program, ReportsAFullDisk) {
  const Ended ended = Program("list 2>&1 >/dev/full");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "tonalith-cli: The answer could not be written: No space left on device.\n");
}

TEST(Program, ReadsTheFilesBesideIt) {
  const catalogue::LibraryFolder folder;
  fs::copy_file(ProgramPath(), folder / "tonalith-cli");
  const std::string program = folder / "tonalith-cli";
  folder.Make("TonalithDB97.mdb");
  fs::create_directory(folder.Path() / "DataPacks");
  folder.Make("DataPacks/DataPack_A.mdb",
              "INSERT INTO ScaleTypes VALUES (1, 1, 'Rare'); INSERT INTO Scales VALUES "
              "(1, 'Of the pack', 1, '', 'C', '66', 0, 1)");
  folder.Make("DataPacks/other.mdb",
              "INSERT INTO ScaleTypes VALUES (1, 1, 'Rare'); INSERT INTO Scales VALUES "
              "(1, 'No pack', 1, '', 'C', '66', 0, 1)");
  std::ofstream(folder / "DataPacks/DataPack_B.mdb") << "damaged";
  const Ended ended = Shell("'" + program + "' list 2>/dev/null");
  EXPECT_EQ(ended.status, 0);
  EXPECT_THAT(ended.output, HasSubstr("Of the pack"));
  EXPECT_EQ(ended.output.find("No pack"), std::string::npos);
  EXPECT_THAT(Shell("'" + program + "' list 2>&1 >/dev/null").output,
              StartsWith("tonalith-cli: A pack is left out. Unrecognized database format"));
}

TEST(ProgramFiles, OfAnInstallationAreThoseOfTheUser) {
  const tests::TempFolder folder;
  fs::create_directories(folder / "bin");
  fs::create_directories(folder / "share/tonalith/DataPacks");
  fs::create_directories(folder / "user/tonalith");
  const ProgramFolders folders{folder / "bin", folder / "user"};
  EXPECT_EQ(FindProgramFiles(folders).library, folder / "bin/TonalithDB97.mdb") << "nothing is there";
  std::ofstream(folder / "share/tonalith/TonalithDB97.mdb") << "x";
  std::ofstream(folder / "share/tonalith/DataPacks/DataPack_B.mdb") << "x";
  std::ofstream(folder / "share/tonalith/DataPacks/DataPack_A.mdb") << "x";
  const ProgramFiles installed = FindProgramFiles(folders);
  EXPECT_EQ(installed.library, folder / "share/tonalith/TonalithDB97.mdb") << "before the first start";
  EXPECT_THAT(installed.packs, ElementsAre(folder / "share/tonalith/DataPacks/DataPack_A.mdb",
                                           folder / "share/tonalith/DataPacks/DataPack_B.mdb"));
  std::ofstream(folder / "user/tonalith/TonalithDB97.mdb") << "x";
  EXPECT_EQ(FindProgramFiles(folders).library, folder / "user/tonalith/TonalithDB97.mdb");
  std::ofstream(folder / "bin/TonalithDB97.mdb") << "x";
  EXPECT_EQ(FindProgramFiles(folders).library, folder / "bin/TonalithDB97.mdb") << "a program with its files beside it";
}

}  // namespace
}  // namespace tonalith::cli
