// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_check.h"

#include "data/data_failure.h"
#include "data/engine.h"

namespace tonalith::data {
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
