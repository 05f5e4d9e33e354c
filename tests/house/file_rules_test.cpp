// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "house/file_rules.h"

#include <gmock/gmock.h>

namespace tonalith::house {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kLicence = "// SPDX-License-Identifier: MIT\n// SPDX-FileCopyrightText: 2026 The Tonalith authors\n";
const std::string kParagraph =
    "// A paragraph that says what this is, what it guarantees, who owns it, which thread it lives on,\n"
    "// and how it fails.\n";

/// The violations in a file with this name and text. In contrast to a TemporaryTree text it may contain empty lines.
std::vector<std::string> Violations(const std::string& name, const std::string& text) {
  const TemporaryTree tree("== " + name + "\n");
  WriteFile(tree.Root() / name, text);
  return ViolationsOf(tree.Root(), name);
}

std::string Lines(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += "int x;\n";
  }
  return text;
}

TEST(FileRules, EveryFileOfTheProjectFollowsThem) { EXPECT_THAT(ViolationsOfAll(ProjectRoot()), IsEmpty()); }

TEST(FileRules, TheFilesOfTheProjectAreRead) {
  const std::vector<Path> files = ProjectFiles(ProjectRoot());
  EXPECT_THAT(files, ::testing::IsSupersetOf({Path("src/core/failure.h"), Path("run"), Path("test"),
                                              Path("docs/rooms.tsv"), Path("tests/house/file_rules_test.cpp")}));
}

TEST(FileRules, AFileOfFourHundredLinesPassesAndOneMoreFails) {
  EXPECT_THAT(Violations("src/core/a.cpp", kLicence + Lines(398)), IsEmpty());
  EXPECT_THAT(Violations("src/core/a.cpp", kLicence + Lines(399)),
              ElementsAre("src/core/a.cpp: 401 lines, 400 are allowed"));
}

TEST(FileRules, AHeaderOfOneHundredAndFiftyLinesPassesAndOneMoreFails) {
  EXPECT_THAT(Violations("tests/core/a.h", kLicence + Lines(148)), IsEmpty());
  EXPECT_THAT(Violations("tests/core/a.h", kLicence + Lines(149)),
              ElementsAre("tests/core/a.h: 151 lines, 150 are allowed"));
}

TEST(FileRules, ATableMayBeLong) {
  EXPECT_THAT(Violations("content/a.tsv", "# SPDX-License-Identifier: CC0-1.0\n" + kLicence + Lines(900)), IsEmpty());
}

TEST(FileRules, EveryFileStartsWithTheLicenceLines) {
  EXPECT_THAT(Violations("src/core/a.cpp", Lines(3)), ElementsAre("src/core/a.cpp: no licence lines at the top"));
  EXPECT_THAT(Violations("content/a.svg", "<svg/>\n"), ElementsAre("content/a.svg: no licence lines at the top"));
  EXPECT_THAT(Violations("run", "#!/bin/sh\n" + kLicence), IsEmpty());
  EXPECT_THAT(Violations("docs/a.png", "no text"), IsEmpty());
}

TEST(FileRules, AHeaderOfSrcHasAParagraph) {
  EXPECT_THAT(Violations("src/core/a.h", kLicence + "\n" + kParagraph), IsEmpty());
  EXPECT_THAT(Violations("src/core/a.h", kLicence + "\n// Short.\n"),
              ElementsAre("src/core/a.h: no paragraph after the licence lines"));
  EXPECT_THAT(Violations("src/core/a.h", kLicence + kParagraph),
              ElementsAre("src/core/a.h: no paragraph after the licence lines"));
}

TEST(FileRules, NoWorkMarkersAreInTheText) {
  const std::string word = std::string("TO") + "DO";
  EXPECT_THAT(Violations("src/core/a.cpp", kLicence + "int a;\n// " + word + ": later\n"),
              ElementsAre("src/core/a.cpp: a loose end in line 4"));
  EXPECT_THAT(Violations("src/core/a.cpp", kLicence + "int my" + word + "List;\n"), IsEmpty());
}

TEST(FileRules, TheNameOfATestFitsOnALine) {
  const auto test = [](int letters) {
    return kLicence + "TEST_F(Suite, " + std::string(static_cast<std::size_t>(letters), 'A') + ") {\n";
  };
  EXPECT_THAT(Violations("tests/core/a.cpp", test(63)), IsEmpty());
  EXPECT_THAT(Violations("tests/core/a.cpp", test(64)),
              ElementsAre("tests/core/a.cpp: a test name of 70 characters in line 3, 69 are allowed"));
}

TEST(FileRules, AFixedSleepNeedsAReason) {
  for (const char* const call : {"std::this_thread::sleep_"
                                 "for(x);",
                                 "::usl"
                                 "eep(5);",
                                 "time.sl"
                                 "eep(1)",
                                 "sle"
                                 "ep 5"}) {
    EXPECT_THAT(Violations("tests/core/a.py", kLicence + "int a;\n" + call + "\n"),
                ElementsAre("tests/core/a.py: a fixed sleep without a reason in the line above it, in line 4"))
        << call;
    EXPECT_THAT(Violations("tests/core/a.py", kLicence + "int a;\n  # The device needs it.\n  " + call + "\n"),
                IsEmpty());
    EXPECT_THAT(Violations("src/core/a.cpp", kLicence + "int a;\n" + call + "\n"), IsEmpty());
  }
  EXPECT_THAT(Violations("tests/core/a.py", kLicence + "asleep = 5\n"), IsEmpty());
}

}  // namespace
}  // namespace tonalith::house
