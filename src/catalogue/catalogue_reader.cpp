// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "catalogue/catalogue_reader.h"

#include <algorithm>
#include <utility>

#include "catalogue/messages.h"
#include "core/upper_case.h"
#include "data/formula_tables.h"

namespace tonalith::catalogue {
namespace {

std::string WithoutBlanks(std::string_view text) {
  std::string digits(text);
  digits.erase(std::remove(digits.begin(), digits.end(), ' '), digits.end());
  return digits;
}

}  // namespace

void CatalogueReader::RequireRoomFor(std::size_t bytes) const {
  const bool isFull = catalogue_.rows_.size() >= kMostEntries || catalogue_.aliases_.size() >= kMostEntries;
  if (isFull || !catalogue_.texts_.HasRoomFor(bytes)) {
    throw core::Failure::Unspecified({MessageId::kTooManyEntries, kMostEntries});
  }
}

TextStore::Place CatalogueReader::AddOnce(std::string_view text) {
  const auto [found, isNew] = shared_.try_emplace(std::string(text), 0);
  if (isNew) found->second = catalogue_.texts_.Add(text);
  return found->second;
}

bool CatalogueReader::TakeName(std::string_view name) {
  core::UpperCaseInto(upper_, name);
  const auto row = static_cast<std::uint32_t>(catalogue_.rows_.size());
  const auto [found, isNew] = rowOfName_.try_emplace(std::hash<std::u32string_view>()(upper_), row);
  return isNew || core::UpperCase(catalogue_.NameAt(found->second)) != upper_;
}

void CatalogueReader::AddScale(const data::StoredScale& scale) {
  RequireRoomFor(scale.name.size() + scale.type.size() + scale.startNote.size() + scale.pattern.size() + 4);
  const std::string_view name = scale.name.substr(0, scale.name.find('\0'));
  if (name.empty() || !TakeName(name)) return;
  const std::string pattern = WithoutBlanks(scale.pattern);
  const auto notes = theory::PitchClassSet::FromPattern(pattern);
  Catalogue::Row row;
  row.id = scale.id;
  row.name = catalogue_.texts_.Add(name);
  row.type = AddOnce(scale.type);
  row.startNote = AddOnce(scale.startNote);
  row.pattern = notes ? 0 : catalogue_.texts_.Add(pattern);
  row.notes = static_cast<std::uint16_t>(notes.value_or(theory::PitchClassSet()).Bits());
  row.file = static_cast<std::uint8_t>(catalogue_.files_.size() - 1);
  row.isChord = scale.isChord;
  rowOfId_.emplace(scale.id, static_cast<std::uint32_t>(catalogue_.rows_.size()));
  catalogue_.rows_.push_back(row);
}

std::optional<std::size_t> CatalogueReader::RowOf(std::int64_t id) const {
  const auto found = rowOfId_.find(id);
  return found == rowOfId_.end() ? std::nullopt : std::optional<std::size_t>(found->second);
}

void CatalogueReader::ReadFormulas(data::ScaleFile& file) {
  file.ForEachFormula([&](const data::StoredText& text) {
    const auto row = RowOf(text.id);
    const auto formula = theory::Formula::Parse(text.text);
    if (!row || !formula || formula->Set().Bits() != catalogue_.rows_[*row].notes) return;
    RequireRoomFor(theory::Formula::kMostBytes);
    catalogue_.rows_[*row].formula = AddOnce(formula->ToText());
  });
}

void CatalogueReader::ReadAliases(data::ScaleFile& file) {
  const std::size_t before = catalogue_.aliases_.size();
  file.ForEachAlias([&](const data::StoredText& text) {
    const auto row = RowOf(text.id);
    if (!row) return;
    RequireRoomFor(text.text.size() + 1);
    catalogue_.aliases_.push_back({static_cast<std::uint32_t>(*row), catalogue_.texts_.Add(text.text)});
  });
  // Their order is untrusted; that of one scale stays.
  const auto begin = catalogue_.aliases_.begin() + static_cast<std::ptrdiff_t>(before);
  std::stable_sort(begin, catalogue_.aliases_.end(),
                   [](const Catalogue::Alias& a, const Catalogue::Alias& b) { return a.row < b.row; });
  DropAliasesBeyondLimit(before);
}

void CatalogueReader::DropAliasesBeyondLimit(std::size_t begin) {
  std::vector<Catalogue::Alias>& aliases = catalogue_.aliases_;
  std::size_t end = begin;
  std::size_t ofRow = 0;
  for (std::size_t i = begin; i < aliases.size(); ++i) {
    ofRow = i > begin && aliases[i].row == aliases[i - 1].row ? ofRow + 1 : 1;
    if (ofRow <= static_cast<std::size_t>(data::kMostAliases)) aliases[end++] = aliases[i];
  }
  aliases.resize(end);
}

void CatalogueReader::Add(const std::string& path) {
  const std::size_t rows = catalogue_.rows_.size();
  const std::size_t aliases = catalogue_.aliases_.size();
  const std::size_t texts = catalogue_.texts_.Size();
  const std::size_t files = catalogue_.files_.size();
  rowOfId_.clear();
  try {
    data::ScaleFile file(path);
    catalogue_.files_.push_back(path);
    file.ForEachScale([&](const data::StoredScale& scale) { AddScale(scale); });
    ReadFormulas(file);
    ReadAliases(file);
  } catch (const core::Failure&) {
    catalogue_.rows_.resize(rows);
    catalogue_.aliases_.resize(aliases);
    catalogue_.texts_.ShrinkTo(texts);
    catalogue_.files_.resize(files);
    std::erase_if(rowOfName_, [&](const auto& name) { return name.second >= rows; });
    std::erase_if(shared_, [&](const auto& text) { return text.second >= texts; });
    throw;
  }
}

Catalogue CatalogueReader::Take() {
  catalogue_.texts_.Trim();
  catalogue_.rows_.shrink_to_fit();
  catalogue_.aliases_.shrink_to_fit();
  return std::exchange(catalogue_, {});
}

Catalogue ReadCatalogue(const std::string& library, std::span<const std::string> packs,
                        std::vector<PackProblem>& problems) {
  CatalogueReader reader;
  reader.Add(library);
  for (const std::string& pack : packs.first(std::min(packs.size(), kMostPacks))) {
    try {
      reader.Add(pack);
    } catch (const core::Failure& failure) {
      problems.push_back({pack, failure});
    }
  }
  return reader.Take();
}

}  // namespace tonalith::catalogue
