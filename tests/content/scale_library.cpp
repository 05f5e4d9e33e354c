// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "content/scale_library.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <stdexcept>

namespace tonalith::content_tests {

namespace {

std::filesystem::path Content() { return std::filesystem::path(TONALITH_SOURCE_DIR) / "content"; }

}  // namespace

ScaleLibrary::ScaleLibrary(const std::filesystem::path& folder)
    : tables_(make_database::ReadScaleTables(Content() / folder)) {}

const ScaleLibrary& ScaleLibrary::Shipped() {
  static const ScaleLibrary library("scales");
  return library;
}

const ScaleLibrary& ScaleLibrary::WithPacks() {
  static const ScaleLibrary library = [] {
    ScaleLibrary all;
    all.Append(Shipped());
    for (const std::string& folder : PackFolders()) all.Append(ScaleLibrary(folder));
    return all;
  }();
  return library;
}

void ScaleLibrary::Append(const ScaleLibrary& other) {
  tables_.types.insert(tables_.types.end(), other.tables_.types.begin(), other.tables_.types.end());
  tables_.scales.insert(tables_.scales.end(), other.tables_.scales.begin(), other.tables_.scales.end());
}

std::vector<ScaleRow> ScaleLibrary::Scales() const {
  std::vector<ScaleRow> scales;
  std::ranges::copy_if(tables_.scales, std::back_inserter(scales), [](const ScaleRow& row) { return !row.isChord; });
  return scales;
}

std::vector<ScaleRow> ScaleLibrary::Chords() const {
  std::vector<ScaleRow> chords;
  std::ranges::copy_if(tables_.scales, std::back_inserter(chords), &ScaleRow::isChord);
  return chords;
}

std::vector<ScaleRow> ScaleLibrary::OfType(std::string_view typeName) const {
  const auto type = std::ranges::find(tables_.types, typeName, &ScaleTypeRow::scaleTypeName);
  if (type == tables_.types.end()) {
    throw std::out_of_range("no type " + std::string(typeName));
  }
  std::vector<ScaleRow> found;
  std::ranges::copy_if(tables_.scales, std::back_inserter(found),
                       [type](const ScaleRow& row) { return row.scaleTypeId == type->scaleTypeId; });
  return found;
}

const ScaleRow* ScaleLibrary::Find(std::string_view name) const {
  const std::string lowered = Lowered(name);
  const auto row = std::ranges::find(tables_.scales, lowered,
                                     [](const ScaleRow& candidate) { return Lowered(candidate.scaleName); });
  if (row != tables_.scales.end()) return &*row;
  const auto isPlainName = [&lowered](const ScaleRow& candidate) { return Lowered(PlainName(candidate)) == lowered; };
  const auto plain = std::ranges::find_if(tables_.scales, isPlainName);
  if (plain == tables_.scales.end()) return nullptr;
  return std::find_if(plain + 1, tables_.scales.end(), isPlainName) == tables_.scales.end() ? &*plain : nullptr;
}

PitchClassSet ScaleLibrary::Notes(std::string_view name) const { return FromPattern(Pattern(name)); }

const std::string& ScaleLibrary::Pattern(std::string_view name) const {
  const ScaleRow* row = Find(name);
  if (row == nullptr) {
    throw std::out_of_range("no scale or chord " + std::string(name));
  }
  return row->scaleIntervals;
}

std::vector<std::string> PackFolders() {
  std::vector<std::string> folders;
  for (const auto& entry : std::filesystem::directory_iterator(Content() / "packs")) {
    if (entry.is_directory()) folders.push_back("packs/" + entry.path().filename().string());
  }
  std::ranges::sort(folders);
  return folders;
}

std::string PlainName(const ScaleRow& row) { return row.scaleName.substr(0, row.scaleName.find(" (")); }

std::string Lowered(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return result;
}

}  // namespace tonalith::content_tests
