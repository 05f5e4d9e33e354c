// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/row_writer.h"

#include <algorithm>
#include <string>
#include <utility>

#include "data/data_failure.h"
#include "data/engine.h"
#include "data/row_cursor.h"
#include "data/scale_names.h"
#include "data/sql_dialect.h"

namespace tonalith::data {
namespace {

std::string UpdateStatement(const Selection::Walk& walk, const std::vector<std::string>& names) {
  std::string settings;
  for (const std::string& name : names) settings += (settings.empty() ? "" : ", ") + name + " = ?";
  return "UPDATE " + walk.source + " SET " + settings + " WHERE " + walk.key + " = ?";
}

}  // namespace

// The triggers of a stored query do not report the number of changed rows, so this checks that the row exists.
void RowWriter::RequireRow(std::int64_t key) {
  bool exists = false;
  const core::Value binding = key;
  engine_.Query("SELECT 1 FROM " + walk_.source + " WHERE " + walk_.key + " = ?", {&binding, 1},
                [&](SQLite::Statement&) { exists = true; });
  if (!exists) throw RowVanished();
}

// A stored query does not report the key of the row that it added. Keys ascend, so it is the highest one.
std::int64_t RowWriter::HighestKey() {
  std::int64_t key = 0;
  engine_.Query("SELECT " + walk_.key + " FROM " + walk_.source + " ORDER BY " + walk_.key + " DESC LIMIT 1", {},
                [&](SQLite::Statement& row) { key = row.getColumn(0).getInt64(); });
  return key;
}

std::int64_t RowWriter::KeyOfInserted(const SetFields& set) {
  if (walk_.keyIsRowNumber) return engine_.LastInsertedRow();
  const auto named = std::find(set.names.begin(), set.names.end(), walk_.key);
  if (named == set.names.end()) return HighestKey();
  const core::Value& given = set.values[static_cast<std::size_t>(named - set.names.begin())];
  return given.IsNull() ? HighestKey() : given.AsInt();
}

std::int64_t RowWriter::Insert(const SetFields& set) {
  WriteGuard guard(engine_);
  RequireFreeName(engine_, walk_.source, set.names, set.values, 0);
  engine_.Execute(InsertStatement(walk_.source, set.names), set.values);
  const std::int64_t key = KeyOfInserted(set);
  guard.Commit();
  return key;
}

void RowWriter::Update(SetFields set) {
  const std::int64_t key = cursor_.Current().key;
  set.values.emplace_back(key);
  WriteGuard guard(engine_);
  RequireRow(key);
  cursor_.RequireUnchanged();
  RequireFreeName(engine_, walk_.source, set.names, set.values, key);
  engine_.Execute(UpdateStatement(walk_, set.names), set.values);
  guard.Commit();
}

void RowWriter::Write(PendingEdit& edit) {
  SetFields set = edit.Fields(selection_.fields);
  if (edit.IsNew()) {
    const std::int64_t key = Insert(set);
    Row added = edit.AppliedTo({key, std::vector<core::Value>(selection_.fields.size())});
    edit.Clear();
    cursor_.AfterInsert(std::move(added));
  } else {
    Update(std::move(set));
    Row changed = edit.AppliedTo(cursor_.Current());
    edit.Clear();
    cursor_.AfterUpdate(std::move(changed));
  }
}

void RowWriter::Delete() {
  const core::Value key = cursor_.Current().key;
  WriteGuard guard(engine_);
  RequireRow(cursor_.Current().key);
  engine_.Execute("DELETE FROM " + walk_.source + " WHERE " + walk_.key + " = ?", {&key, 1});
  guard.Commit();
  cursor_.AfterDelete();
}

}  // namespace tonalith::data
