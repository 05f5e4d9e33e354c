// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The member functions of RecordSet that change rows.

#include <algorithm>
#include <utility>

#include "data/connection.h"
#include "data/data_failure.h"
#include "data/engine.h"
#include "data/record_set.h"
#include "data/row_source.h"
#include "data/scale_names.h"
#include "data/sql_dialect.h"

namespace tonalith::data {
namespace {

// The names and values of the fields that were set, in parallel vectors.
struct SetFields {
  std::vector<std::string> names;
  std::vector<core::Value> values;

  SetFields(const std::vector<std::string>& fields, const std::vector<std::optional<core::Value>>& pending) {
    for (std::size_t i = 0; i < pending.size(); ++i) {
      if (!pending[i]) continue;
      names.push_back(QuoteName(fields[i]));
      values.push_back(*pending[i]);
    }
  }
};

std::string UpdateStatement(const Selection::Walk& walk, const std::vector<std::string>& names) {
  std::string settings;
  for (const std::string& name : names) settings += (settings.empty() ? "" : ", ") + name + " = ?";
  return "UPDATE " + walk.source + " SET " + settings + " WHERE " + walk.key + " = ?";
}

// The triggers of a stored query do not report the number of changed rows, so this checks that the row exists.
void RequireRow(Engine& engine, const Selection::Walk& walk, std::int64_t key) {
  bool exists = false;
  const core::Value binding = key;
  engine.Query("SELECT 1 FROM " + walk.source + " WHERE " + walk.key + " = ?", {&binding, 1},
               [&](SQLite::Statement&) { exists = true; });
  if (!exists) throw RowVanished();
}

// A stored query does not report the key of the row that it added. Keys ascend, so it is the highest one.
std::int64_t HighestKey(Engine& engine, const Selection::Walk& walk) {
  std::int64_t key = 0;
  engine.Query("SELECT " + walk.key + " FROM " + walk.source + " ORDER BY " + walk.key + " DESC LIMIT 1", {},
               [&](SQLite::Statement& row) { key = row.getColumn(0).getInt64(); });
  return key;
}

}  // namespace

void RecordSet::RequireUpdatable() const {
  RequireOpen();
  if (lockType_ == LockType::kReadOnly || !selection_->walk) throw UpdatingNotSupported();
}

void RecordSet::SetFieldValue(int index, core::Value value) {
  RequireUpdatable();
  RequireField(index);
  if (!isNew_ && place_ != Place::kRow) throw NoCurrentRecord();
  const auto at = static_cast<std::size_t>(index);
  const bool isUnchanged = !isNew_ && row_->values.at(at) == value;
  if (pending_.empty() && isUnchanged) return;
  pending_.resize(selection_->fields.size());
  pending_[at] = isUnchanged ? std::nullopt : std::optional(std::move(value));
  const bool isAnySet =
      std::any_of(pending_.begin(), pending_.end(), [](const auto& field) { return field.has_value(); });
  if (!isAnySet) pending_.clear();
}

void RecordSet::SetFieldValue(std::string_view name, core::Value value) {
  RequireOpen();
  SetFieldValue(RequireField(name), std::move(value));
}

void RecordSet::AddNew() {
  RequireUpdatable();
  LeaveRow();
  isNew_ = true;
}

void RecordSet::CancelUpdate() {
  RequireOpen();
  isNew_ = false;
  pending_.clear();
}

void RecordSet::Resync() {
  RequireOpen();
  if (isNew_ || place_ != Place::kRow) throw NoCurrentRecord();
  rows_->Forget();
  RowPointer row = rows_->At(row_->key);
  if (row == nullptr) throw RowVanished();
  row_ = std::move(row);
}

void RecordSet::Update() {
  RequireUpdatable();
  if (IsEditPending() && lockType_ != LockType::kBatchOptimistic) WritePending();
}

void RecordSet::UpdateBatch() {
  RequireUpdatable();
  if (IsEditPending()) WritePending();
}

void RecordSet::WritePending() {
  if (isNew_) {
    Insert();
  } else {
    Change();
  }
}

void RecordSet::Insert() {
  Engine& engine = OpenEngine();
  const Selection::Walk& walk = *selection_->walk;
  const SetFields set(selection_->fields, pending_);
  WriteGuard guard(engine);
  RequireFreeName(engine, walk.source, set.names, set.values, 0);
  engine.Execute(InsertStatement(walk.source, set.names), set.values);
  std::int64_t key = 0;
  if (walk.keyIsRowNumber) {
    key = engine.LastInsertedRow();
  } else {
    const auto named = std::find(set.names.begin(), set.names.end(), walk.key);
    const bool isGiven =
        named != set.names.end() && !set.values[static_cast<std::size_t>(named - set.names.begin())].IsNull();
    key = isGiven ? set.values[static_cast<std::size_t>(named - set.names.begin())].AsInt() : HighestKey(engine, walk);
  }
  guard.Commit();

  // A row that the condition or filter excludes is still current until the next move.
  auto fallback = std::make_shared<Row>(Row{key, std::vector<core::Value>(selection_->fields.size())});
  for (std::size_t i = 0; i < pending_.size(); ++i) fallback->values[i] = pending_[i].value_or(core::Value::Null());
  isNew_ = false;
  pending_.clear();
  NoteOwnChange();
  rows_->Forget();
  RowPointer row = rows_->At(key);
  SetCurrentRow(row != nullptr ? std::move(row) : RowPointer(std::move(fallback)), std::nullopt, Place::kEmpty);
}

// Prevents overwriting a change that another connection has saved. A row that the filter excludes cannot be compared.
void RecordSet::RequireUnchanged() {
  rows_->Forget();
  const RowPointer now = rows_->At(row_->key);
  if (now != nullptr && now->values != row_->values) throw RowChanged();
}

void RecordSet::Change() {
  Engine& engine = OpenEngine();
  const Selection::Walk& walk = *selection_->walk;
  SetFields set(selection_->fields, pending_);
  set.values.emplace_back(row_->key);
  WriteGuard guard(engine);
  RequireRow(engine, walk, row_->key);
  RequireUnchanged();
  RequireFreeName(engine, walk.source, set.names, set.values, row_->key);
  engine.Execute(UpdateStatement(walk, set.names), set.values);
  guard.Commit();

  auto changed = std::make_shared<Row>(*row_);
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    if (pending_[i]) changed->values[i] = *pending_[i];
  }
  const std::optional<std::int64_t> position = position_;
  pending_.clear();
  NoteOwnChange();
  rows_->Forget();
  RowPointer row = rows_->At(changed->key);
  SetCurrentRow(row != nullptr ? std::move(row) : RowPointer(std::move(changed)), position, Place::kEmpty);
}

void RecordSet::Delete() {
  RequireUpdatable();
  if (isNew_) throw NotAllowedHere();
  if (place_ != Place::kRow) throw NoCurrentRecord();
  Engine& engine = OpenEngine();
  const Selection::Walk& walk = *selection_->walk;
  const core::Value key = row_->key;
  WriteGuard guard(engine);
  RequireRow(engine, walk, row_->key);
  engine.Execute("DELETE FROM " + walk.source + " WHERE " + walk.key + " = ?", {&key, 1});
  guard.Commit();

  pending_.clear();
  rows_->Forget();
  NoteOwnChange();
  place_ = Place::kDeleted;
}

}  // namespace tonalith::data
