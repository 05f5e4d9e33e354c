// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "house/file_rules.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <set>

namespace tonalith::house {
namespace {

constexpr std::size_t kFileLines = 400;
constexpr std::size_t kHeaderLines = 150;
constexpr std::size_t kParagraphCharacters = 30;
/// Suite and name; with the name of the room, lists of tests then fit on a line.
constexpr std::size_t kTestNameCharacters = 69;

bool IsCode(const Path& file) {
  static const std::set<std::string> endings{".cpp", ".h", ".cmake", ".sh", ".py"};
  static const std::set<std::string> names{"CMakeLists.txt", "run", "test"};
  return endings.count(file.extension().string()) != 0 || names.count(file.filename().string()) != 0;
}

bool IsContent(const Path& file) {
  static const std::set<std::string> endings{".tsv", ".svg", ".html", ".supp"};
  return endings.count(file.extension().string()) != 0;
}

bool IsSourceHeader(const Path& file) { return file.extension() == ".h" && *file.begin() == "src"; }

/// Both licence lines must be at the top; a shebang line or the opening of a markup file may precede them.
bool HasLicence(const std::vector<std::string>& lines) {
  std::string head;
  for (std::size_t i = 0; i < std::min<std::size_t>(lines.size(), 5); ++i) {
    head += lines[i] + "\n";
  }
  static const std::regex licence("SPDX-License-Identifier: (MIT|CC0-1\\.0)\\b");
  return std::regex_search(head, licence) &&
         head.find("SPDX-FileCopyrightText: 2026 The Tonalith authors") != std::string::npos;
}

/// A header has an empty line and a paragraph after the licence lines.
bool HasParagraph(const std::vector<std::string>& lines) {
  if (lines.size() < 4 || !lines[2].empty()) {
    return false;
  }
  std::size_t characters = 0;
  for (std::size_t i = 3; i < lines.size() && lines[i].rfind("//", 0) == 0; ++i) {
    characters += lines[i].size();
  }
  return characters >= kParagraphCharacters;
}

bool IsWordPart(const std::string& line, std::size_t at) {
  return at < line.size() && (std::isalnum(static_cast<unsigned char>(line[at])) != 0 || line[at] == '_');
}

bool HasWorkMarker(const std::string& line) {
  // Written in parts, so that the rule does not match this file.
  static const std::vector<std::string> words{
      "TO"
      "DO",
      "FIX"
      "ME",
      "XX"
      "X",
      "HA"
      "CK"};
  return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
    const std::size_t at = line.find(word);
    return at != std::string::npos && (at == 0 || !IsWordPart(line, at - 1)) && !IsWordPart(line, at + word.size());
  });
}

/// The characters of the name of the test that the line defines; 0 if it defines none.
std::size_t TestNameCharacters(const std::string& line) {
  static const std::regex test(R"(^(?:TYPED_)?TEST(?:_F|_P)?\((\w+), *(\w+))");
  std::smatch parts;
  if (!std::regex_search(line, parts, test)) return 0;
  return static_cast<std::size_t>(parts.length(1) + 1 + parts.length(2));
}

/// Whether a line sleeps for a fixed time.
bool Sleeps(const std::string& line) {
  static const std::regex sleep(R"(\b(sleep_for|usleep|msleep|qWait|time\.sleep)\(|^\s*sleep \d)");
  return std::regex_search(line, sleep);
}

bool IsComment(const std::string& line) {
  const std::size_t start = line.find_first_not_of(' ');
  return start != std::string::npos && (line[start] == '#' || line.compare(start, 2, "//") == 0);
}

bool MustNotSleep(const Path& file) { return *file.begin() == "tests" || *file.begin() == "tools"; }

}  // namespace

std::vector<std::string> ViolationsOf(const Path& root, const Path& file) {
  if (!IsCode(file) && !IsContent(file)) {
    return {};
  }
  std::vector<std::string> violations;
  const auto report = [&](const std::string& text) { violations.push_back(file.generic_string() + ": " + text); };
  const std::vector<std::string> lines = LinesOf(root / file);
  const std::size_t limit = file.extension() == ".h" ? kHeaderLines : kFileLines;
  if (IsCode(file) && lines.size() > limit) {
    report(std::to_string(lines.size()) + " lines, " + std::to_string(limit) + " are allowed");
  }
  if (!HasLicence(lines)) {
    report("no licence lines at the top");
  }
  if (IsSourceHeader(file) && !HasParagraph(lines)) {
    report("no paragraph after the licence lines");
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (HasWorkMarker(lines[i])) {
      report("a loose end in line " + std::to_string(i + 1));
    }
    if (TestNameCharacters(lines[i]) > kTestNameCharacters) {
      report("a test name of " + std::to_string(TestNameCharacters(lines[i])) + " characters in line " +
             std::to_string(i + 1) + ", " + std::to_string(kTestNameCharacters) + " are allowed");
    }
    if (MustNotSleep(file) && Sleeps(lines[i]) && (i == 0 || !IsComment(lines[i - 1]))) {
      report("a fixed sleep without a reason in the line above it, in line " + std::to_string(i + 1));
    }
  }
  return violations;
}

std::vector<std::string> ViolationsOfAll(const Path& root) {
  std::vector<std::string> violations;
  for (const Path& file : ProjectFiles(root)) {
    const std::vector<std::string> more = ViolationsOf(root, file);
    violations.insert(violations.end(), more.begin(), more.end());
  }
  return violations;
}

}  // namespace tonalith::house
