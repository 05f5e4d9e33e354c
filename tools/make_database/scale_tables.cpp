// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "make_database/scale_tables.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <initializer_list>
#include <map>
#include <string_view>

#include "core/text.h"

namespace tonalith::make_database {
namespace {

using Columns = std::vector<std::string>;

constexpr std::string_view kAliasSeparator = "; ";

struct TableRow {
  TableLocation location;
  Columns columns;
};

Columns SplitAtTabs(const std::string& line) {
  Columns columns(1);
  for (const char c : line) {
    if (c == '\t') {
      columns.emplace_back();
    } else {
      columns.back() += c;
    }
  }
  return columns;
}

void RequireText(const TableLocation& location, std::string_view line) {
  while (!line.empty()) {
    const std::size_t length = core::WellFormedLength(line);
    if (length == 0) throw TableFailure(location, "the line is not UTF-8");
    const auto code = static_cast<unsigned char>(line.front());
    if (code < 0x20 && code != '\t') throw TableFailure(location, "the line holds a control character");
    line.remove_prefix(length);
  }
}

std::vector<TableRow> ReadTable(const std::filesystem::path& file, std::initializer_list<std::string_view> header) {
  std::ifstream stream(file, std::ios::binary);
  TableLocation location{file.string(), 0};
  if (!stream) throw TableFailure(location, "the table cannot be read");
  std::vector<TableRow> rows;
  bool hasHeader = false;
  for (std::string line; std::getline(stream, line);) {
    ++location.line;
    RequireText(location, line);
    if (line.starts_with('#')) continue;
    Columns columns = SplitAtTabs(line);
    if (!hasHeader) {
      if (columns != Columns(header.begin(), header.end()))
        throw TableFailure(location, "these are not the table's columns");
      hasHeader = true;
      continue;
    }
    if (columns.size() != header.size()) {
      throw TableFailure(location, "the line has " + std::to_string(columns.size()) + " columns instead of " +
                                       std::to_string(header.size()));
    }
    rows.push_back({location, std::move(columns)});
  }
  if (stream.bad()) throw TableFailure(location, "the table cannot be read on from here");
  if (!hasHeader) throw TableFailure(location, "the table has no line of column names");
  return rows;
}

std::int64_t Number(const TableRow& row, std::size_t column) {
  const std::string& text = row.columns[column];
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (text.empty() || result.ec != std::errc{} || result.ptr != end) {
    throw TableFailure(row.location, "'" + text + "' is not a whole number");
  }
  return number;
}

bool YesOrNo(const TableRow& row, std::size_t column) {
  const std::string& text = row.columns[column];
  if (text != "yes" && text != "no") throw TableFailure(row.location, "'" + text + "' is neither yes nor no");
  return text == "yes";
}

// The texts of a column that are separated by a semicolon and a blank.
std::vector<std::string> Aliases(const TableRow& row, std::size_t column) {
  std::vector<std::string> aliases;
  std::string_view rest = row.columns[column];
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(kAliasSeparator), rest.size());
    const std::string_view alias = rest.substr(0, end);
    if (alias.empty() || alias.front() == ' ' || alias.back() == ' ' || alias.find(';') != std::string_view::npos) {
      throw TableFailure(row.location, "'" + std::string(alias) + "' is not an alias");
    }
    aliases.emplace_back(alias);
    const bool isLast = end == rest.size();
    rest.remove_prefix(isLast ? end : end + kAliasSeparator.size());
    if (!isLast && rest.empty()) throw TableFailure(row.location, "an alias is missing at the end");
  }
  return aliases;
}

std::vector<ScaleTypeRow> ReadScaleTypes(const std::filesystem::path& file) {
  std::vector<ScaleTypeRow> types;
  for (const TableRow& row : ReadTable(file, {"ScaleTypeID", "ScaleTypeNo", "ScaleTypeName"})) {
    types.push_back({row.location, Number(row, 0), Number(row, 1), row.columns[2]});
  }
  return types;
}

std::vector<ScaleRow> ReadScales(const std::filesystem::path& file) {
  std::vector<ScaleRow> scales;
  for (const TableRow& row : ReadTable(file, {"ScaleName", "ScaleTypeID", "StartNote", "ScaleIntervals", "Chord",
                                              "Source", "ScaleDescription", "Formula", "Aliases"})) {
    ScaleRow& scale = scales.emplace_back();
    scale.location = row.location;
    scale.scaleName = row.columns[0];
    scale.scaleTypeId = Number(row, 1);
    scale.startNote = row.columns[2];
    scale.scaleIntervals = row.columns[3];
    scale.isChord = YesOrNo(row, 4);
    scale.source = row.columns[5];
    scale.scaleDescription = row.columns[6];
    scale.formula = row.columns[7];
    scale.aliases = Aliases(row, 8);
  }
  return scales;
}

// Derives the numbers from the order of the rows.
void NumberRows(std::vector<ScaleRow>& scales) {
  std::int64_t lastId = 0;
  std::map<std::int64_t, std::int64_t> lastSort;
  for (ScaleRow& scale : scales) {
    scale.scaleId = ++lastId;
    scale.sort = ++lastSort[scale.scaleTypeId];
  }
}

}  // namespace

core::Failure TableFailure(const TableLocation& location, const std::string& description) {
  return {core::failure_number::kInvalidProcedureCall,
          core::Message::Verbatim(location.file + ":" + std::to_string(location.line) + ": " + description)};
}

ScaleTables ReadScaleTables(const std::filesystem::path& folder) {
  ScaleTables tables{ReadScaleTypes(folder / "types.tsv"), ReadScales(folder / "scales.tsv")};
  for (ScaleRow& chord : ReadScales(folder / "chords.tsv")) tables.scales.push_back(std::move(chord));
  NumberRows(tables.scales);
  return tables;
}

std::string FormulaLines(const std::vector<ScaleRow>& scales) {
  std::string lines;
  for (const ScaleRow& scale : scales) {
    lines += scale.scaleName + '\t' + scale.scaleIntervals + '\t' + scale.formula + '\t';
    for (const std::string& alias : scale.aliases) {
      if (&alias != &scale.aliases.front()) lines += kAliasSeparator;
      lines += alias;
    }
    lines += '\n';
  }
  return lines;
}

}  // namespace tonalith::make_database
