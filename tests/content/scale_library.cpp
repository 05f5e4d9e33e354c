// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "content/scale_library.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <stdexcept>

namespace tonalith::content_tests {

ScaleLibrary::ScaleLibrary()
    : tables_(make_database::ReadScaleTables(std::filesystem::path(TONALITH_SOURCE_DIR) / "content")) {}

const ScaleLibrary& ScaleLibrary::Shipped() {
  static const ScaleLibrary library;
  return library;
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
  const auto row = std::ranges::find(tables_.scales, Lowered(name),
                                     [](const ScaleRow& candidate) { return Lowered(candidate.scaleName); });
  return row == tables_.scales.end() ? nullptr : &*row;
}

PitchClassSet ScaleLibrary::Notes(std::string_view name) const { return FromPattern(Pattern(name)); }

const std::string& ScaleLibrary::Pattern(std::string_view name) const {
  const ScaleRow* row = Find(name);
  if (row == nullptr) {
    throw std::out_of_range("no scale or chord " + std::string(name));
  }
  return row->scaleIntervals;
}

std::string Lowered(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return result;
}

}  // namespace tonalith::content_tests
