// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "content/mentions.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <utility>

namespace tonalith::content_tests {
namespace {

struct NamedRow {
  std::string name;
  const ScaleRow* row = nullptr;
};

/// The rows with their reference names, the longest name first.
const std::vector<NamedRow>& NamedRows() {
  static const std::vector<NamedRow> kRows = [] {
    const std::vector<ScaleRow>& all = ScaleLibrary::WithPacks().Rows();
    std::map<std::string, int> rowsOfName;
    for (const ScaleRow& row : all) ++rowsOfName[Lowered(PlainName(row))];
    std::vector<NamedRow> rows;
    for (const ScaleRow& row : all) {
      rows.push_back({rowsOfName[Lowered(PlainName(row))] == 1 ? PlainName(row) : row.scaleName, &row});
    }
    std::ranges::stable_sort(rows, std::ranges::greater(), [](const NamedRow& row) { return row.name.size(); });
    return rows;
  }();
  return kRows;
}

bool IsWordCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

/// Whether a word can end before `rest`. A hyphen between letters belongs to the word.
bool EndsWord(std::string_view rest) {
  if (rest.empty()) return true;
  if (rest.front() == '-') return rest.size() < 2 || !IsWordCharacter(rest[1]);
  return !IsWordCharacter(rest.front());
}

/// The longest name at the beginning of the text, or null.
const NamedRow* NameAtFront(std::string_view text) {
  const auto& rows = NamedRows();
  const auto found = std::ranges::find_if(rows, [text](const NamedRow& row) {
    return text.starts_with(row.name) && EndsWord(text.substr(row.name.size()));
  });
  return found == rows.end() ? nullptr : &*found;
}

}  // namespace

const std::string& ReferenceName(const ScaleRow& row) {
  static const std::map<std::string, std::string> kNames = [] {
    std::map<std::string, std::string> names;
    for (const NamedRow& named : NamedRows()) names[named.row->scaleName] = named.name;
    return names;
  }();
  return kNames.at(row.scaleName);
}

std::vector<const ScaleRow*> Mentions(std::string_view text) {
  std::vector<const ScaleRow*> found;
  char before = ' ';
  while (!text.empty()) {
    const NamedRow* named = IsWordCharacter(before) || before == '-' ? nullptr : NameAtFront(text);
    const std::size_t length = named == nullptr ? 1 : named->name.size();
    if (named != nullptr) found.push_back(named->row);
    before = text[length - 1];
    text.remove_prefix(length);
  }
  return found;
}

std::vector<const ScaleRow*> TakeNameList(std::string_view& text) {
  std::vector<const ScaleRow*> found;
  std::string_view rest = text;
  while (const NamedRow* named = NameAtFront(rest)) {
    found.push_back(named->row);
    rest.remove_prefix(named->name.size());
    text = rest;
    const std::string_view separator = rest.starts_with(", ") ? ", " : rest.starts_with(" and ") ? " and " : "";
    if (separator.empty()) break;
    rest.remove_prefix(separator.size());
  }
  return found;
}

std::string FolderOf(const ScaleRow& row) {
  const std::filesystem::path folder = std::filesystem::path(row.location.file).parent_path();
  const std::string name = folder.filename().string();
  return folder.parent_path().filename() == "packs" ? "packs/" + name : name;
}

}  // namespace tonalith::content_tests
