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
constexpr std::size_t kParagraphLetters = 30;

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

/// Both licence lines stand at the top; a script's first line and the opening of a marked-up file may stand before
/// them.
bool HasLicence(const std::vector<std::string>& lines) {
  std::string head;
  for (std::size_t i = 0; i < std::min<std::size_t>(lines.size(), 5); ++i) {
    head += lines[i] + "\n";
  }
  static const std::regex licence("SPDX-License-Identifier: (MIT|CC0-1\\.0)\\b");
  return std::regex_search(head, licence) &&
         head.find("SPDX-FileCopyrightText: 2026 The Tonalith authors") != std::string::npos;
}

/// After the licence lines a header has an empty line and a paragraph.
bool HasParagraph(const std::vector<std::string>& lines) {
  if (lines.size() < 4 || !lines[2].empty()) {
    return false;
  }
  std::size_t letters = 0;
  for (std::size_t i = 3; i < lines.size() && lines[i].rfind("//", 0) == 0; ++i) {
    letters += lines[i].size();
  }
  return letters >= kParagraphLetters;
}

bool IsWordPart(const std::string& line, std::size_t at) {
  return at < line.size() && (std::isalnum(static_cast<unsigned char>(line[at])) != 0 || line[at] == '_');
}

bool HasLooseEnd(const std::string& line) {
  // Written in pieces, so that this file does not find itself.
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

}  // namespace

std::vector<std::string> ViolationsOf(const Path& root, const Path& file) {
  if (!IsCode(file) && !IsContent(file)) {
    return {};
  }
  std::vector<std::string> faults;
  const auto fault = [&](const std::string& text) { faults.push_back(file.generic_string() + ": " + text); };
  const std::vector<std::string> lines = LinesOf(root / file);
  const std::size_t budget = file.extension() == ".h" ? kHeaderLines : kFileLines;
  if (IsCode(file) && lines.size() > budget) {
    fault(std::to_string(lines.size()) + " lines, " + std::to_string(budget) + " are allowed");
  }
  if (!HasLicence(lines)) {
    fault("no licence lines at the top");
  }
  if (IsSourceHeader(file) && !HasParagraph(lines)) {
    fault("no paragraph after the licence lines");
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (HasLooseEnd(lines[i])) {
      fault("a loose end in line " + std::to_string(i + 1));
    }
  }
  return faults;
}

std::vector<std::string> ViolationsOfAll(const Path& root) {
  std::vector<std::string> faults;
  for (const Path& file : ProjectFiles(root)) {
    const std::vector<std::string> more = ViolationsOf(root, file);
    faults.insert(faults.end(), more.begin(), more.end());
  }
  return faults;
}

}  // namespace tonalith::house
