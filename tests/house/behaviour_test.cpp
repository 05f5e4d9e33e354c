// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// docs/behaviour.md names the tests that assert it, and comments name its headings. Both kinds of reference must exist.

#include <gmock/gmock.h>

#include <optional>
#include <regex>
#include <set>

#include "house/house_files.h"

namespace tonalith::house {
namespace {

using ::testing::IsEmpty;

const Path kDocument = Path("docs") / "behaviour.md";

/// The tests of a file as "Suite.Name".
std::set<std::string> TestsIn(const Path& file) {
  static const std::regex kTest(R"((?:TEST|TEST_F|TEST_P|TYPED_TEST|TYPED_TEST_P)\((\w+),\s*(\w+)\))");
  const std::string text = ReadFile(file);
  std::set<std::string> tests;
  for (auto test = std::sregex_iterator(text.begin(), text.end(), kTest); test != std::sregex_iterator(); ++test) {
    tests.insert((*test)[1].str() + "." + (*test)[2].str());
  }
  return tests;
}

/// What is wrong with the references of one line: `folder/file_test.cpp` and, after it, `Suite.Name`.
void FindWrongReferences(const Path& root, const std::string& line, std::vector<std::string>& wrong) {
  static const std::regex kReference(R"(`([a-z_]+/[a-z_]+_test\.(?:cpp|py))`|`(\w+\.\w+)`)");
  std::optional<std::set<std::string>> tests;
  for (auto at = std::sregex_iterator(line.begin(), line.end(), kReference); at != std::sregex_iterator(); ++at) {
    const std::string file = (*at)[1].str();
    const std::string test = (*at)[2].str();
    if (!file.empty()) {
      const bool isThere = std::filesystem::exists(root / "tests" / file);
      if (!isThere) wrong.push_back("no file tests/" + file);
      tests = isThere ? TestsIn(root / "tests" / file) : std::set<std::string>();
    } else if (tests && !tests->contains(test)) {
      wrong.push_back("no test " + test);
    }
  }
}

std::vector<std::string> WrongReferences(const Path& root) {
  std::vector<std::string> wrong;
  for (const std::string& line : LinesOf(root / kDocument)) FindWrongReferences(root, line, wrong);
  return wrong;
}

/// The comments "Kept: see docs/behaviour.md, <heading>" that name no heading of the document.
std::vector<std::string> WrongHeadings(const Path& root) {
  std::set<std::string> headings;
  for (const std::string& line : LinesOf(root / kDocument)) {
    if (line.starts_with("### ")) headings.insert(line.substr(4));
  }
  static const std::regex kComment(R"(Kept: see docs/behaviour\.md, ([^\n]*\w))");
  std::vector<std::string> wrong;
  for (const Path& file : ProjectFiles(root)) {
    if (file.extension() != ".h" && file.extension() != ".cpp") continue;
    if (!file.string().starts_with("src/")) continue;
    const std::string text = ReadFile(root / file);
    for (auto at = std::sregex_iterator(text.begin(), text.end(), kComment); at != std::sregex_iterator(); ++at) {
      if (!headings.contains((*at)[1].str())) wrong.push_back(file.string() + ": " + (*at)[1].str());
    }
  }
  return wrong;
}

TEST(Behaviour, NamesTestsThatExist) { EXPECT_THAT(WrongReferences(ProjectRoot()), IsEmpty()); }

TEST(Behaviour, CommentsNameHeadingsThatExist) { EXPECT_THAT(WrongHeadings(ProjectRoot()), IsEmpty()); }

TEST(Behaviour, WrongReferencesAreFound) {
  const TemporaryTree tree(
      "== docs/behaviour.md\n"
      "### Known\n"
      "`core/a_test.cpp` `A.Exists` `A.Missing` `core/b_test.cpp`\n"
      "== tests/core/a_test.cpp\n"
      "TEST_F(A, Exists) {}\n"
      "== src/core/a.cpp\n"
      "// Kept: see docs/behaviour.md, Known.\n"
      "// Kept: see docs/behaviour.md, Unknown.\n");
  EXPECT_THAT(WrongReferences(tree.Root()),
              ::testing::ElementsAre("no test A.Missing", "no file tests/core/b_test.cpp"));
  EXPECT_THAT(WrongHeadings(tree.Root()), ::testing::ElementsAre("src/core/a.cpp: Unknown"));
}

}  // namespace
}  // namespace tonalith::house
