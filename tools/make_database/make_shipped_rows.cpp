// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_make_shipped_rows <table-folder> <output.cpp>: writes the rows of the library that differ from those of an
// earlier version, as C++ source. row_hashes_1_0.tsv contains hashes of the earlier rows, earlier_rows.tsv their
// current names. Exit status 0: success. 1: a table is malformed; prints one line. 2: wrong arguments.

#include <exception>
#include <fstream>
#include <iostream>
#include <map>
#include <string>

#include "make_database/scale_tables.h"

namespace {

using namespace tonalith;

/// The two columns of a table. Lines with # are comments; the first other line has the column names.
std::map<std::string, std::string> ReadPairs(const std::string& file) {
  std::ifstream stream(file);
  if (!stream) throw make_database::TableFailure({file, 0}, "the table cannot be read");
  std::map<std::string, std::string> pairs;
  bool hasHeader = false;
  int number = 0;
  for (std::string line; std::getline(stream, line);) {
    ++number;
    if (line.starts_with('#')) continue;
    const auto tab = line.find('\t');
    if (tab == std::string::npos) throw make_database::TableFailure({file, number}, "the line has one column");
    if (hasHeader) pairs[line.substr(0, tab)] = line.substr(tab + 1);
    hasHeader = true;
  }
  return pairs;
}

std::string Literal(const std::string& text) {
  std::string literal = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') literal += '\\';
    literal += c;
  }
  return literal + '"';
}

void Make(const std::string& folder, const std::string& output) {
  const auto hashes = ReadPairs(folder + "/row_hashes_1_0.tsv");
  std::map<std::string, make_database::ScaleRow> currentRows;
  for (const auto& row : make_database::ReadScaleTables(folder).scales) currentRows[row.scaleName] = row;
  std::map<std::string, const make_database::ScaleRow*> byHash;
  for (const auto& [before, now] : ReadPairs(folder + "/earlier_rows.tsv")) {
    const auto hash = hashes.find(before);
    const auto row = currentRows.find(now);
    if (hash == hashes.end()) throw make_database::TableFailure({folder, 0}, "'" + before + "' has no hash");
    if (row == currentRows.end()) throw make_database::TableFailure({folder, 0}, "there is no row '" + now + "'");
    byHash[hash->second] = &row->second;
  }
  std::ofstream source(output);
  source << "#include <array>\n#include \"data/shipped_rows.h\"\nnamespace tonalith::data {\nnamespace {\n"
         << "constexpr std::array<ShippedRow, " << byHash.size() << "> kRows = {{\n";
  for (const auto& [hash, row] : byHash) {
    source << "{0x" << hash << "U, " << Literal(row->scaleName) << ", " << Literal(row->scaleDescription) << "},\n";
  }
  source << "}};\n}\nstd::span<const ShippedRow> ShippedRows() { return kRows; }\n}\n";
  if (!source.flush()) throw make_database::TableFailure({output, 0}, "the source cannot be written");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: tonalith_make_shipped_rows <table-folder> <output.cpp>\n";
    return 2;
  }
  try {
    Make(argv[1], argv[2]);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return 1;
  }
  return 0;
}
