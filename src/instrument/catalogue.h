// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The catalogue of instruments and tunings, read from a text table; content/instruments/instruments.tsv explains its
// columns. The program's own table is compiled in, and a test keeps it free of errors.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "instrument/instrument.h"
#include "instrument/text_table.h"

namespace tonalith::instrument {

struct CatalogueEntry {
  /// Unique and permanent, for remembered state: "guitar-drop-d".
  std::string id;
  /// "Guitar", "Ukulele": for a chooser.
  std::string group;
  /// A work with its year, or a rule of construction.
  std::string source;
  /// The open strings as the table spells them, without companions: Eb2, not D#2. In the order of the strings.
  std::vector<std::string> openStrings;
  /// Without a capo, right-handed, the high string on top. Its name is unique.
  Instrument instrument;
};

struct Catalogue {
  std::vector<CatalogueEntry> entries;
  /// The first error; the entries before it are valid.
  std::optional<TableError> error;
};

[[nodiscard]] Catalogue ParseCatalogue(std::string_view table);

/// The compiled-in catalogue. Read at the first call; any thread may call it.
[[nodiscard]] const std::vector<CatalogueEntry>& BuiltInCatalogue();
/// Its first entry: a guitar in standard tuning.
[[nodiscard]] const Instrument& DefaultInstrument();

/// The entry with this id or name, otherwise the first one with this name after its instrument ("drop D"), ignoring the
/// case of ASCII letters; null if there is none.
[[nodiscard]] const CatalogueEntry* FindInstrument(const std::vector<CatalogueEntry>& entries, std::string_view text);

/// Reads a string of a tuning: "E2", "Bb2+Bb3" for a double course, "G4@5" for a string that begins at fret 5. Nothing
/// for any other text.
[[nodiscard]] std::optional<String> ParseString(std::string_view text);

}  // namespace tonalith::instrument
