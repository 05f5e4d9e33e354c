// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/text_table.h"

#include <algorithm>

#include "theory/parsed.h"

namespace tonalith::instrument {
namespace {

constexpr char kFirstPrintable = ' ';

std::vector<std::string_view> SplitAtTabs(std::string_view line) {
  std::vector<std::string_view> cells;
  while (true) {
    const std::size_t tab = line.find('\t');
    cells.push_back(line.substr(0, tab));
    if (tab == std::string_view::npos) return cells;
    line.remove_prefix(tab + 1);
  }
}

TableError ErrorInLine(int number, std::string_view line, std::size_t byte, TableReason reason) {
  return {number, theory::CharacterNumber(line, byte), reason, std::nullopt};
}

std::optional<TableError> ErrorOf(const TableRow& row, std::size_t columns) {
  const auto isControl = [](char c) { return c >= 0 && c < kFirstPrintable && c != '\t'; };
  const auto control = std::find_if(row.line.begin(), row.line.end(), isControl);
  if (control != row.line.end()) {
    const auto byte = static_cast<std::size_t>(control - row.line.begin());
    return ErrorInLine(row.number, row.line, byte, TableReason::kControlCharacter);
  }
  if (row.cells.size() < columns) {
    return ErrorInLine(row.number, row.line, row.line.size(), TableReason::kColumnMissing);
  }
  if (row.cells.size() > columns) return row.ErrorAt(columns, TableReason::kColumnTooMany);
  for (std::size_t i = 0; i < columns; ++i) {
    if (row.cells[i].empty()) return row.ErrorAt(i, TableReason::kEmptyCell);
  }
  return std::nullopt;
}

/// Removes the next line, without its end.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

}  // namespace

std::string_view Text(TableReason reason) {
  switch (reason) {
    case TableReason::kTooLong:
      return "The table is longer than 1 MiB";
    case TableReason::kTooManyRows:
      return "The table has more than 10,000 rows";
    case TableReason::kControlCharacter:
      return "There is a control character in this line";
    case TableReason::kWrongColumnNames:
      return "These are not the columns of this table";
    case TableReason::kNoColumnNames:
      return "The table has no line with the names of its columns";
    case TableReason::kColumnMissing:
      return "A column is missing";
    case TableReason::kColumnTooMany:
      return "There are too many columns";
    case TableReason::kEmptyCell:
      return "This column is empty";
    case TableReason::kBadId:
      return "An id has lower-case letters, digits and hyphens";
    case TableReason::kIdTwice:
      return "Another row has this id";
    case TableReason::kNameTwice:
      return "Another row has this name";
    case TableReason::kUnknownPitch:
      return "This is no pitch such as E2, F#3 or Bb2";
    case TableReason::kBadFirstFret:
      return "The fret after @ is not a number from 1 to 35";
    case TableReason::kNotANumber:
      return "This is not a whole number";
    case TableReason::kUnknownInstrument:
      return "No instrument has this id";
    case TableReason::kUnknownNote:
      return "No note has this name";
    case TableReason::kUnknownDegrees:
      return "These are not the degrees of a chord";
    case TableReason::kUnknownFrets:
      return "These are not frets such as x32010 or x-10-12-12-11-10";
    case TableReason::kNoSuchFret:
      return "The instrument does not have these strings or frets";
    case TableReason::kNotTheChord:
      return "These frets do not sound as this chord";
    case TableReason::kSetup:
      return "";
  }
  return "";
}

std::string Describe(const TableError& error) {
  const std::string_view reason = error.setup ? Text(*error.setup) : Text(error.reason);
  return "Line " + std::to_string(error.line) + ", column " + std::to_string(error.column) + ": " + std::string(reason);
}

TableError TableRow::ErrorAt(std::size_t cell, TableReason reason, std::size_t byteInCell) const {
  const auto byte = static_cast<std::size_t>(cells.at(cell).data() - line.data());
  return ErrorInLine(number, line, byte + byteInCell, reason);
}

TextTable ReadTextTable(std::string_view text, std::span<const std::string_view> columns) {
  TextTable table;
  if (text.size() > kMostTableBytes) {
    table.error = TableError{1, 1, TableReason::kTooLong, std::nullopt};
    return table;
  }
  bool hasNames = false;
  int number = 0;
  while (!text.empty() && !table.error) {
    const std::string_view line = TakeLine(text);
    ++number;
    if (line.empty() || line.starts_with('#')) continue;
    TableRow row{number, line, SplitAtTabs(line)};
    if (!hasNames) {
      hasNames = std::equal(row.cells.begin(), row.cells.end(), columns.begin(), columns.end());
      if (!hasNames) table.error = ErrorInLine(number, line, 0, TableReason::kWrongColumnNames);
      continue;
    }
    table.error = ErrorOf(row, columns.size());
    if (table.rows.size() == kMostTableRows) table.error = ErrorInLine(number, line, 0, TableReason::kTooManyRows);
    if (!table.error) table.rows.push_back(std::move(row));
  }
  if (!hasNames && !table.error) {
    table.error = TableError{std::max(number, 1), 1, TableReason::kNoColumnNames, std::nullopt};
  }
  return table;
}

}  // namespace tonalith::instrument
