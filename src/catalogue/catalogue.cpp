// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "catalogue/catalogue.h"

#include <algorithm>

#include "data/scale_file.h"
#include "theory/spelling.h"

namespace tonalith::catalogue {

Entry Catalogue::At(std::size_t index) const {
  const Row& row = rows_[index];
  Entry entry;
  entry.id = row.id;
  entry.name = texts_.At(row.name);
  entry.type = texts_.At(row.type);
  entry.kind = KindAt(index);
  entry.notes = NotesAt(index);
  entry.pattern = entry.notes.Pattern().value_or(std::string(texts_.At(row.pattern)));
  entry.startNote = texts_.At(row.startNote);
  entry.path = files_[row.file];
  entry.isOfLibrary = IsOfLibrary(index);
  return entry;
}

theory::SetKind Catalogue::KindAt(std::size_t index) const {
  return rows_[index].isChord ? theory::SetKind::kChord : theory::SetKind::kScale;
}

theory::PitchClassSet Catalogue::NotesAt(std::size_t index) const {
  return theory::PitchClassSet::FromBits(rows_[index].notes);
}

theory::Formula Catalogue::FormulaAt(std::size_t index) const {
  const Row& row = rows_[index];
  if (const auto stored = theory::Formula::Parse(texts_.At(row.formula))) return *stored;
  const theory::PitchClassSet notes = NotesAt(index);
  if (notes.IsEmpty()) return {};
  return row.isChord ? theory::DeriveChordFormula(notes) : theory::DeriveScaleFormula(notes);
}

std::vector<std::string_view> Catalogue::AliasesAt(std::size_t index) const {
  std::vector<std::string_view> aliases;
  auto alias = std::lower_bound(aliases_.begin(), aliases_.end(), index,
                                [](const Alias& a, std::size_t row) { return a.row < row; });
  for (; alias != aliases_.end() && alias->row == index; ++alias) aliases.push_back(texts_.At(alias->text));
  return aliases;
}

std::string Catalogue::DescriptionAt(std::size_t index) const {
  const Row& row = rows_[index];
  return data::ScaleFile(files_[row.file]).DescriptionOf(row.id, texts_.At(row.name));
}

}  // namespace tonalith::catalogue
