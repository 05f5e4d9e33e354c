// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The text tables with the scale content: UTF-8, one row per line, columns separated by one tab, lines with # ignored,
// column names in the first other line. Rows are plain values with their line number. A malformed table throws a
// Failure whose description starts with "<file>:<line>: ".

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/failure.h"

namespace tonalith::make_database {

/// The file and line of a row, for messages.
struct TableLocation {
  std::string file;
  int line = 0;
};

struct ScaleTypeRow {
  TableLocation location;
  std::int64_t scaleTypeId = 0;
  std::int64_t scaleTypeNo = 0;
  std::string scaleTypeName;
};

struct ScaleRow {
  TableLocation location;
  /// Position among all rows of the folder, from 1. Not a column: derived from the order of the rows.
  std::int64_t scaleId = 0;
  std::string scaleName;
  std::int64_t scaleTypeId = 0;
  std::string startNote;
  std::string scaleIntervals;
  bool isChord = false;
  /// Position among the rows of the same type, from 1. Not a column either.
  std::int64_t sort = 0;
  /// The source of the pattern; only in the table, not in the database.
  std::string source;
  std::string scaleDescription;
  /// Degrees in ascending order, separated by blanks.
  std::string formula;
  std::vector<std::string> aliases;
};

struct ScaleTables {
  std::vector<ScaleTypeRow> types;
  /// The scales, then the chords.
  std::vector<ScaleRow> scales;
};

/// Reads types.tsv, scales.tsv and chords.tsv of the library or of a data pack.
ScaleTables ReadScaleTables(const std::filesystem::path& folder);

/// The names, patterns, formulas and aliases as text in the format of data::FormulaLines.
std::string FormulaLines(const std::vector<ScaleRow>& scales);

/// A failure for a row; its description starts with the location.
core::Failure TableFailure(const TableLocation& location, const std::string& description);

}  // namespace tonalith::make_database
