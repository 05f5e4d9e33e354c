// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gmock/gmock.h>
#include <stdio.h>
#include <sys/wait.h>

#include <regex>
#include <set>

#include "house/house_files.h"

namespace tonalith::house {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

struct Outcome {
  int status;
  std::string text;
};

Outcome Bash(const std::string& script) {
  const TemporaryTree tree("== script\n");
  WriteFile(tree.Root() / "script", script);
  const std::string command = "bash '" + (tree.Root() / "script").string() + "' 2>&1 </dev/null";
  FILE* const pipe = popen(command.c_str(), "r");
  Outcome outcome{-1, {}};
  for (int letter = fgetc(pipe); letter != EOF; letter = fgetc(pipe)) {
    outcome.text += static_cast<char>(letter);
  }
  outcome.status = WEXITSTATUS(pclose(pipe));
  return outcome;
}

/// Runs tools/packages.sh with a small table and fakes of the system commands, which `system` may redefine.
Outcome Require(const std::string& system, const std::string& call = "TonalithRequire build") {
  const TemporaryTree tree(
      "== tools/packages.tsv\n"
      "# a comment\n"
      "build\tcompiler\treason\n"
      "build\told-name|new-name\treason\n"
      "other\tpicture\treason\n");
  return Bash(
      "set -euo pipefail\nroot='" + tree.Root().string() + "'\nsource '" +
      (ProjectRoot() / "tools/packages.sh").string() +
      "'\n"
      "export -n TONALITH_SKIP_PACKAGES; unset TONALITH_SKIP_PACKAGES\n"
      "dpkg-query() { echo 'compiler installed'; return 1; }\n"
      "apt-cache() { if [[ $2 == new-name ]]; then echo '  Candidate: 1.0'; else echo '  Candidate: (none)'; fi; }\n"
      "apt-get() { :; }\n"
      "env() { shift; shift; echo \"ran: $*\" >&3; }\n"
      "exec 3>&1\n"
      "id() { echo 0; }\n"
      "sleep() { :; }\n" +
      system + "\n" + call + "\necho reached the end\n");
}

TEST(Packages, NothingIsPrintedOrDoneIfAllAreInstalled) {
  const Outcome outcome = Require("dpkg-query() { printf 'compiler installed\\nnew-name installed\\n'; return 1; }");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.text, "reached the end\n");
}

TEST(Packages, APackageWithOnlyItsConfigurationLeftIsMissing) {
  const Outcome outcome = Require("dpkg-query() { printf 'compiler config-files\\nnew-name installed\\n'; }");
  EXPECT_THAT(outcome.text, HasSubstr("Installing: compiler\n"));
}

TEST(Packages, TheNameThatThisReleaseOffersIsInstalled) {
  const Outcome outcome = Require("");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.text, HasSubstr("Installing: old-name|new-name\n"));
  EXPECT_THAT(outcome.text, HasSubstr("install --no-install-recommends new-name\n"));
  EXPECT_THAT(outcome.text, HasSubstr("reached the end\n"));
}

TEST(Packages, OnlyTheRequestedGroupsAreChecked) {
  EXPECT_THAT(Require("").text, Not(HasSubstr("picture")));
  EXPECT_THAT(Require("", "TonalithRequire build other").text, HasSubstr("new-name picture\n"));
}

TEST(Packages, AFailedInstallationIsRetriedOnce) {
  const Outcome outcome = Require("env() { if [[ ! -e $root/once ]]; then touch \"$root/once\"; return 100; fi; }");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.text, HasSubstr("Once more, after a short rest.\nreached the end\n"));
}

TEST(Packages, AnInstallationThatFailsTwicePrintsItsLog) {
  const Outcome outcome = Require("env() { echo 'no such mirror'; return 100; }");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text,
              HasSubstr("no such mirror\nno such mirror\nThese packages could not be installed: new-name"));
  EXPECT_THAT(outcome.text, Not(HasSubstr("reached the end")));
}

TEST(Packages, UsersOtherThanRootUseSudo) {
  const Outcome outcome = Require("id() { echo 1000; }\nsudo() { echo \"sudo: $1 ${*: -1}\" >&3; }");
  EXPECT_THAT(outcome.text, HasSubstr("sudo: apt-get update\n"));
  EXPECT_THAT(outcome.text, HasSubstr("sudo: env new-name\n"));
}

TEST(Packages, OtherSystemsGetAListOfPackages) {
  const Outcome outcome = Require("command() { [[ $2 != apt-get ]]; }");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("compiler old-name|new-name"));
  EXPECT_THAT(outcome.text, Not(HasSubstr("reached the end")));
}

TEST(Packages, TheCheckCanBeSkipped) {
  const Outcome outcome = Require("export TONALITH_SKIP_PACKAGES=1");
  EXPECT_EQ(outcome.text, "reached the end\n");
}

TEST(Packages, EveryLibraryOfTheBuildHasAPackageInTheTable) {
  std::set<std::string> known;
  for (const std::string& row : LinesOf(ProjectRoot() / "tools/packages.tsv")) {
    const std::vector<std::string> columns = Split(row, "\t");
    if (!row.starts_with('#') && columns.size() == 4) known.insert(columns[3]);
  }
  const std::regex pattern(R"((?:find_package|pkg_check_modules)\s*\(\s*(\w+)([^)]*)\))");
  int found = 0;
  for (const Path& file : ProjectFiles(ProjectRoot())) {
    if (file.filename() != "CMakeLists.txt" && file.extension() != ".cmake") {
      continue;
    }
    const std::string text = ReadFile(ProjectRoot() / file);
    for (std::sregex_iterator call(text.begin(), text.end(), pattern); call != std::sregex_iterator(); ++call) {
      std::vector<std::string> libraries{(*call)[1]};
      if ((*call)[2].str().find("Svg") != std::string::npos) {
        libraries.emplace_back("Svg");
      }
      for (const std::string& library : libraries) {
        ++found;
        EXPECT_EQ(known.count(library), 1U) << library << " of " << file << " has no package in tools/packages.tsv";
      }
    }
  }
  EXPECT_GE(found, 4);
}

TEST(Commands, EveryScriptIsValidBashAndTheCommandsAreExecutable) {
  for (const char* const name : {"run", "test", ".ci/run", "tools/coverage"}) {
    const Path file = ProjectRoot() / name;
    EXPECT_NE(fs::status(file).permissions() & fs::perms::owner_exec, fs::perms::none) << name;
    EXPECT_THAT(Bash("bash -n '" + file.string() + "'").text, IsEmpty());
  }
  for (const Path& file : ProjectFiles(ProjectRoot())) {
    if (file.extension() == ".sh") {
      EXPECT_THAT(Bash("bash -n '" + (ProjectRoot() / file).string() + "'").text, IsEmpty()) << file;
    }
  }
}

/// The table that tools/coverage prints for `counted` (path, lines, executed lines) and `bounds`.
Outcome CoverageTable(const std::string& bounds, const std::string& counted) {
  const TemporaryTree tree("== tools/packages.sh\n== tools/build.sh\n== build/coverage/lines.csv\n");
  WriteFile(tree.Root() / "tools/coverage", ReadFile(ProjectRoot() / "tools/coverage"));
  WriteFile(tree.Root() / "tools/coverage.tsv", bounds);
  WriteFile(tree.Root() / "build/coverage/lines.csv", "filename,line_total,line_covered\n" + counted);
  return Bash("bash '" + (tree.Root() / "tools/coverage").string() + "' --again");
}

TEST(CoverageTable, PassesIfEveryFileAndEveryRoomMeetsItsBound) {
  const Outcome outcome = CoverageTable("src/core/*\t95\nsrc/*\t85\n", "src/core/a.cpp,100,95\nsrc/app/b.cpp,100,85\n");
  EXPECT_EQ(outcome.status, 0) << outcome.text;
  EXPECT_THAT(outcome.text, Not(HasSubstr("below")));
  EXPECT_THAT(outcome.text, HasSubstr("90.0 %")) << "both together";
}

TEST(CoverageTable, FailsForAFileBelowTheBoundOfItsFirstPattern) {
  const Outcome outcome =
      CoverageTable("src/core/a.*\t95\nsrc/*\t85\n", "src/core/a.cpp,1000,949\nsrc/core/b.cpp,100,86\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("94.9 %  below its bound of 95 %"));
  EXPECT_THAT(outcome.text, HasSubstr("\n1 of the bounds"));
}

TEST(CoverageTable, FailsForARoomBelowItsBound) {
  const Outcome outcome =
      CoverageTable("src/core/a.cpp\t0\nsrc/*\t85\n", "src/core/a.cpp,100,10\nsrc/core/b.cpp,10,10\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("18.1 %  below its bound of 85 %"));
}

TEST(CoverageTable, FailsForAPatternWithoutFiles) {
  const Outcome outcome = CoverageTable("src/gone.cpp\t85\nsrc/*\t85\n", "src/core/a.cpp,10,10\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.text, HasSubstr("src/gone.cpp of tools/coverage.tsv fits nothing"));
}

TEST(Presets, ATestPresetThatFindsNoTestFails) {
  const std::string presets = ReadFile(ProjectRoot() / "CMakePresets.json");
  EXPECT_THAT(presets, HasSubstr(R"("noTestsAction": "error")"));
  const std::string testPresets = presets.substr(presets.find("\"testPresets\""));
  // Preset names are words; the names in filters are patterns.
  const std::regex named(R"re("name": "[a-z])re");
  const std::regex inherits(R"re("inherits": "base")re");
  const auto count = [&](const std::regex& pattern) {
    return std::distance(std::sregex_iterator(testPresets.begin(), testPresets.end(), pattern), std::sregex_iterator());
  };
  // All presets except the base.
  EXPECT_EQ(count(named), count(inherits) + 1);
}

}  // namespace
}  // namespace tonalith::house
