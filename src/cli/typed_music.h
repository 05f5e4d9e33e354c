// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// From typed texts to music: a scale or chord by name or symbol with its key, an instrument, frets, notes. All throw
// Refusal for a text that means nothing, with the nearest names.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/options.h"
#include "instrument/catalogue.h"
#include "instrument/frets.h"
#include "theory/chord_finder.h"
#include "theory/formula.h"
#include "theory/key.h"
#include "theory/note_name.h"

namespace tonalith::cli {

/// A scale or chord on a tonic.
struct Music {
  std::string name;
  theory::SetKind kind = theory::SetKind::kScale;
  /// Not empty. With the bass, if that is a note of its own.
  theory::Formula formula;
  /// Without that bass.
  theory::Formula chordFormula;
  theory::NoteName tonic;
  /// Only of a chord symbol.
  std::optional<theory::NoteName> bass;
  /// The entry with these notes, if there is one.
  std::optional<std::size_t> entry;

  /// Counted from C.
  [[nodiscard]] theory::PitchClassSet Notes() const;
};

/// Reads the text of the options as a name or a symbol, and their key.
[[nodiscard]] Music ReadMusic(const catalogue::Catalogue& catalogue, const Options& options,
                              std::optional<theory::SetKind> preferred = std::nullopt);

/// The instrument of the options; a guitar in standard tuning if they have none.
[[nodiscard]] const instrument::CatalogueEntry& ReadInstrument(const Options& options);

/// Whether a text has only digits, x, hyphens and blanks.
[[nodiscard]] bool LooksLikeFrets(std::string_view text);
/// The sounding pitches from the lowest one.
[[nodiscard]] std::vector<theory::Pitch> ReadFrets(const Options& options);
[[nodiscard]] std::vector<theory::NoteName> ReadNotes(const Options& options);

/// For a message: a long text is cut, and bytes that are not UTF-8 are replaced.
[[nodiscard]] std::string Shown(std::string_view text);
/// "A, B and C", quoted.
[[nodiscard]] std::string Listed(const std::vector<std::string>& names);

}  // namespace tonalith::cli
