// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The text tables that the scale content is kept in: UTF-8, one row a line, columns separated by one tab, lines that
// begin with # left out, the first other line naming the columns. What is read is plain values that know their line.
// A table that is not well formed throws a Failure whose description begins with "<file>:<line>: ".

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/failure.h"

namespace tonalith::make_database {

/// Where a row stands, for messages about it.
struct TableLocation {
  std::string file;
  int line = 0;
};

struct ScaleTypeRow {
  TableLocation place;
  std::int64_t scaleTypeId = 0;
  std::int64_t scaleTypeNo = 0;
  std::string scaleTypeName;
};

struct ScaleRow {
  TableLocation place;
  /// Position among all rows of the folder, from 1. Not a column: it follows from the order of the rows.
  std::int64_t scaleId = 0;
  std::string scaleName;
  std::int64_t scaleTypeId = 0;
  std::string startNote;
  std::string scaleIntervals;
  bool isChord = false;
  /// Position among the rows of the same type, from 1. Not a column either.
  std::int64_t sort = 0;
  /// Where the form comes from; kept in the table, not in the database.
  std::string source;
  std::string scaleDescription;
};

struct ScaleTables {
  std::vector<ScaleTypeRow> types;
  /// The scales, then the chords.
  std::vector<ScaleRow> scales;
};

/// types.tsv, scales.tsv and chords.tsv of a folder: the library's own tables or those of a data pack.
ScaleTables ReadScaleTables(const std::filesystem::path& folder);

/// A failure about a row, with its place in front.
core::Failure TableFailure(const TableLocation& place, const std::string& words);

}  // namespace tonalith::make_database
