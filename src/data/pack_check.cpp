// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_check.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "data/data_failure.h"
#include "data/engine.h"
#include "data/jet_file.h"

namespace tonalith::data {
namespace {

// SQLite database file format, section 1.3: the page size, high byte first, 1 for 65536; 0 for what is no such file.
std::uint32_t PageSize(const std::string& path) {
  constexpr std::size_t kPlace = 16;
  std::array<char, kPlace + 2> header{};
  std::ifstream file(path, std::ios::binary);
  if (!file.read(header.data(), header.size())) return 0;
  const auto high = static_cast<unsigned char>(header[kPlace]);
  const auto low = static_cast<unsigned char>(header[kPlace + 1]);
  const std::uint32_t size = std::uint32_t{high} << 8 | low;
  return size == 1 ? 65536 : size;
}

}  // namespace

void RequireWholePages(const std::string& path) {
  if (IsJetFile(path)) return;
  std::error_code error;
  const std::uintmax_t length = std::filesystem::file_size(path, error);
  const std::uint32_t page = PageSize(path);
  if (error || page == 0 || length % page != 0) throw UnrecognizedFormat(path);
}

void RequirePlainTable(Engine& pack, const std::string& table) {
  const Value name = table;
  std::string type = "table";
  pack.Query("SELECT type FROM pragma_table_list WHERE schema = 'main' AND name = ? COLLATE NOCASE", {&name, 1},
             [&](SQLite::Statement& row) { type = row.getColumn(0).getString(); });
  if (type == "view") throw Unspecified("'" + table + "' is a stored query in this pack, not a table.");
  if (type != "table") throw Unspecified("'" + table + "' is not an ordinary table in this pack.");
}

void RisingRows::Require(Bookmark row) {
  if (latest_ && row.key <= *latest_) throw UnrecognizedFormat(path_);
  latest_ = row.key;
}

}  // namespace tonalith::data
