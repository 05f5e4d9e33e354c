// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Every scale and chord of a library and of packs, with formula and other names. Entries are in the order of their
// files, the library first; of equal names, ignoring case, only the first one is there. An entry takes 32 bytes and its
// texts; descriptions stay in the files. Immutable after ReadCatalogue, so any thread may read it.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/text_store.h"
#include "core/failure.h"
#include "theory/formula.h"
#include "theory/key.h"
#include "theory/pitch_class_set.h"

namespace tonalith::catalogue {

/// Ten times the largest library that Tonalith is made for. Also the most aliases of all entries.
inline constexpr std::size_t kMostEntries = 1'000'000;
/// Files after these are not read. A number of a file fits into eight bits.
inline constexpr std::size_t kMostPacks = 200;

/// The texts are valid as long as the catalogue.
struct Entry {
  /// The number of the scale in its file.
  std::int64_t id = 0;
  std::string_view name;
  std::string_view type;
  theory::SetKind kind = theory::SetKind::kScale;
  /// Counted from the root; empty if the steps of the pattern do not sum to an octave.
  theory::PitchClassSet notes;
  /// The steps as digits, without blanks. Anything if `notes` is empty.
  std::string pattern;
  std::string_view startNote;
  /// The file of the library or pack.
  std::string_view path;
  bool isOfLibrary = true;
};

class Catalogue {
 public:
  [[nodiscard]] std::size_t Size() const { return rows_.size(); }
  /// `index` is below Size in all functions.
  [[nodiscard]] Entry At(std::size_t index) const;
  [[nodiscard]] std::string_view NameAt(std::size_t index) const { return texts_.At(rows_[index].name); }
  [[nodiscard]] theory::SetKind KindAt(std::size_t index) const;
  [[nodiscard]] theory::PitchClassSet NotesAt(std::size_t index) const;
  [[nodiscard]] bool IsOfLibrary(std::size_t index) const { return rows_[index].file == 0; }
  /// The formula of the file, or one that is derived from the notes. Empty if the entry has no notes.
  [[nodiscard]] theory::Formula FormulaAt(std::size_t index) const;
  [[nodiscard]] std::vector<std::string_view> AliasesAt(std::size_t index) const;
  /// Reads the file of the entry. Throws core::Failure.
  [[nodiscard]] std::string DescriptionAt(std::size_t index) const;

 private:
  friend class CatalogueReader;

  struct Row {
    std::int64_t id = 0;
    TextStore::Place name = 0;
    TextStore::Place type = 0;
    TextStore::Place startNote = 0;
    TextStore::Place formula = 0;
    /// Only of a pattern without notes.
    TextStore::Place pattern = 0;
    std::uint16_t notes = 0;
    std::uint8_t file = 0;
    bool isChord = false;
  };
  struct Alias {
    std::uint32_t row = 0;
    TextStore::Place text = 0;
  };

  TextStore texts_;
  std::vector<Row> rows_;
  /// In the order of the rows.
  std::vector<Alias> aliases_;
  std::vector<std::string> files_;
};

/// A pack that could not be read.
struct PackProblem {
  std::string path;
  core::Failure failure;
};

/// Reads the library and the packs without changing them. Throws core::Failure if the library cannot be read; packs
/// that cannot be read are left out, and added to `problems`.
[[nodiscard]] Catalogue ReadCatalogue(const std::string& library, std::span<const std::string> packs,
                                      std::vector<PackProblem>& problems);

}  // namespace tonalith::catalogue
