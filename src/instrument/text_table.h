// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Text tables as in content/: UTF-8, one row per line, columns separated by one tab, lines with # ignored, the names of
// the columns in the first other line. The cells refer to the text, which must outlive them. An error has its line and
// column and stops the reading.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "instrument/instrument.h"

namespace tonalith::instrument {

/// A table of ten thousand rows has less than 1 MiB.
inline constexpr std::size_t kMostTableBytes = std::size_t{1} << 20;
/// A chooser with more is of no use, and everything derived from a row takes time.
inline constexpr std::size_t kMostTableRows = 10'000;

enum class TableReason : std::uint8_t {
  kTooLong,
  kTooManyRows,
  kControlCharacter,
  kWrongColumnNames,
  kNoColumnNames,
  kColumnMissing,
  kColumnTooMany,
  kEmptyCell,
  kBadId,
  kIdTwice,
  kNameTwice,
  kUnknownPitch,
  kBadFirstFret,
  kNotANumber,
  kUnknownInstrument,
  kUnknownNote,
  kUnknownDegrees,
  kUnknownFrets,
  kNoSuchFret,
  kNotTheChord,
  kSetup,
};

/// One English sentence without its full stop; empty for kSetup, which has its own text.
[[nodiscard]] std::string_view Text(TableReason reason);

struct TableError {
  /// From 1.
  int line = 1;
  /// The character in its line, from 1.
  std::size_t column = 1;
  TableReason reason = TableReason::kNoColumnNames;
  /// Only for kSetup.
  std::optional<SetupProblem> setup;

  bool operator==(const TableError&) const = default;
};

/// "Line 3, column 14: No note has this name".
[[nodiscard]] std::string Describe(const TableError& error);

struct TableRow {
  /// From 1.
  int number = 1;
  std::string_view line;
  std::vector<std::string_view> cells;

  /// An error at a byte of a cell.
  [[nodiscard]] TableError ErrorAt(std::size_t cell, TableReason reason, std::size_t byteInCell = 0) const;
};

struct TextTable {
  std::vector<TableRow> rows;
  /// The first error; the rows before it are valid.
  std::optional<TableError> error;
};

[[nodiscard]] TextTable ReadTextTable(std::string_view text, std::span<const std::string_view> columns);

}  // namespace tonalith::instrument
