// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The shapes that every player learns first, read from a text table; content/instruments/known_shapes.tsv explains its
// columns. They are data because no rule of fingers and frets tells x32010 from other shapes as easy as this one.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "instrument/catalogue.h"
#include "instrument/chord_tones.h"
#include "instrument/frets.h"
#include "instrument/text_table.h"

namespace tonalith::instrument {

struct KnownShape {
  /// The open strings of its instrument.
  std::vector<String> strings;
  std::string instrumentId;
  Chord chord;
  Frets frets;
  /// A work with its year, or a rule of construction.
  std::string source;
};

struct KnownShapes {
  std::vector<KnownShape> shapes;
  /// The first error; the shapes before it are valid.
  std::optional<TableError> error;
};

[[nodiscard]] KnownShapes ParseKnownShapes(std::string_view table, const std::vector<CatalogueEntry>& instruments);

/// The compiled-in shapes. Read at the first call; any thread may call it.
[[nodiscard]] const std::vector<KnownShape>& BuiltInKnownShapes();

/// The known shapes of a chord: those of the table in its order, then those without open strings that are moved along
/// the neck, the lowest first. They also hold for an instrument whose strings are all tuned by the same interval higher
/// or lower.
[[nodiscard]] std::vector<Frets> KnownShapesOf(const std::vector<KnownShape>& known, const Instrument& instrument,
                                               const Chord& chord);

}  // namespace tonalith::instrument
