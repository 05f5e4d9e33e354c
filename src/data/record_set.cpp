// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/record_set.h"

#include <utility>

#include "data/connection.h"
#include "data/data_failure.h"
#include "data/engine.h"
#include "data/row_source.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"

namespace tonalith::data {

RecordSet::RecordSet() = default;
RecordSet::~RecordSet() = default;

void RecordSet::Open(const std::string& source, std::shared_ptr<Connection> connection, CursorType cursorType,
                     LockType lockType) {
  if (IsOpen()) throw ObjectAlreadyOpen();
  if (connection == nullptr || !connection->IsOpen()) throw InvalidConnection();
  const std::shared_ptr<Engine> engine = connection->engine_;
  auto selection = MakeSelection(*engine, source);
  auto rows = MakeRowSource(*engine, *selection, {});
  RowPointer first = rows->First();

  connection_ = std::move(connection);
  engine_ = engine;
  selection_ = std::move(selection);
  rows_ = std::move(rows);
  cursorType_ = cursorType;
  lockType_ = lockType;
  filter_.clear();
  isNew_ = false;
  pending_.clear();
  NoteOwnChange();
  SetCurrentRow(std::move(first), 1, Place::kEmpty);
}

void RecordSet::Close() {
  RequireOpen();
  if (IsEditPending()) throw NotAllowedHere();
  rows_.reset();
  row_.reset();
  selection_.reset();
  engine_.reset();
  connection_.reset();
}

bool RecordSet::IsOpen() const { return !engine_.expired(); }

void RecordSet::RequireOpen() const {
  if (!IsOpen()) throw ObjectClosed();
}

Engine& RecordSet::OpenEngine() const {
  // This record set shares the connection, which owns the engine, so the reference outlives the call.
  const std::shared_ptr<Engine> engine = engine_.lock();
  if (engine == nullptr) throw ObjectClosed();
  return *engine;
}

std::unique_ptr<RecordSet> RecordSet::Clone() const {
  RequireOpen();
  return CloneOf(selection_);
}

std::unique_ptr<RecordSet> RecordSet::Clone(const std::vector<std::string>& fields) const {
  RequireOpen();
  auto narrow = std::make_shared<Selection>(*selection_);
  narrow->isNarrow = true;
  narrow->fields.clear();
  for (const std::string& field : fields) narrow->fields.push_back(FieldName(RequireField(field)));
  return CloneOf(std::move(narrow));
}

std::unique_ptr<RecordSet> RecordSet::CloneOf(std::shared_ptr<const Selection> selection) const {
  Engine& engine = OpenEngine();
  RequireScrollable();
  auto clone = std::make_unique<RecordSet>();
  clone->rows_ = MakeRowSource(engine, *selection, {});
  clone->connection_ = connection_;
  clone->engine_ = engine_;
  clone->selection_ = std::move(selection);
  clone->cursorType_ = cursorType_;
  clone->lockType_ = lockType_;
  clone->NoteOwnChange();
  clone->GoToFirstRow();
  return clone;
}

void RecordSet::Requery() {
  RequireOpen();
  if (IsEditPending()) throw NotAllowedHere();
  rows_->Forget();
  NoteOwnChange();
  GoToFirstRow();
}

bool RecordSet::IsBof() const {
  RequireOpen();
  return !isNew_ && (place_ == Place::kBof || place_ == Place::kEmpty);
}

bool RecordSet::IsEof() const {
  RequireOpen();
  return !isNew_ && (place_ == Place::kEof || place_ == Place::kEmpty);
}

void RecordSet::RequireScrollable() const {
  if (cursorType_ == CursorType::kForwardOnly) throw OperationNotSupported();
}

// Saves the pending edit, and drops cached rows that a write through the same connection may have changed.
void RecordSet::LeaveRow() {
  Engine& engine = OpenEngine();
  if (IsEditPending()) WritePending();
  if (engine.Changes() == changesSeen_) return;
  rows_->Forget();
  position_.reset();
  NoteOwnChange();
}

void RecordSet::NoteOwnChange() {
  changesSeen_ = OpenEngine().Changes();
  count_.reset();
}

void RecordSet::SetCurrentRow(RowPointer row, std::optional<std::int64_t> position, Place otherwise) {
  place_ = row == nullptr ? otherwise : Place::kRow;
  position_ = position;
  row_ = std::move(row);
}

void RecordSet::GoToFirstRow() { SetCurrentRow(rows_->First(), 1, Place::kEmpty); }

void RecordSet::MoveFirst() {
  LeaveRow();
  GoToFirstRow();
  if (place_ == Place::kEmpty) throw NoCurrentRecord();
}

void RecordSet::MoveLast() {
  RequireOpen();
  RequireScrollable();
  LeaveRow();
  SetCurrentRow(rows_->Last(), count_, Place::kEmpty);
  if (place_ == Place::kEmpty) throw NoCurrentRecord();
}

void RecordSet::MoveNext() {
  LeaveRow();
  if (place_ == Place::kBof) return GoToFirstRow();
  if (place_ == Place::kEmpty || place_ == Place::kEof) throw NoCurrentRecord();
  // The row after a deleted row already has its position.
  std::optional<std::int64_t> position = position_;
  if (position && place_ == Place::kRow) ++*position;
  RowPointer next = rows_->After(row_->key);
  const bool isEmpty = next == nullptr && place_ == Place::kDeleted && rows_->First() == nullptr;
  SetCurrentRow(std::move(next), position, isEmpty ? Place::kEmpty : Place::kEof);
}

void RecordSet::MovePrevious() {
  RequireOpen();
  RequireScrollable();
  LeaveRow();
  if (place_ == Place::kEmpty || place_ == Place::kBof) throw NoCurrentRecord();
  if (place_ == Place::kEof) return SetCurrentRow(rows_->Last(), count_, Place::kEmpty);
  std::optional<std::int64_t> position = position_;
  if (position) --*position;
  RowPointer previous = rows_->Before(row_->key);
  const bool isEmpty = previous == nullptr && place_ == Place::kDeleted && rows_->First() == nullptr;
  SetCurrentRow(std::move(previous), position, isEmpty ? Place::kEmpty : Place::kBof);
}

Bookmark RecordSet::GetBookmark() const {
  RequireOpen();
  RequireScrollable();
  if (isNew_ || place_ != Place::kRow) throw NoCurrentRecord();
  return {row_->key};
}

void RecordSet::SetBookmark(Bookmark bookmark) {
  RequireOpen();
  RequireScrollable();
  LeaveRow();
  RowPointer row = rows_->At(bookmark.key);
  if (row == nullptr) throw InvalidBookmark();
  const bool isSame = place_ == Place::kRow && row_->key == bookmark.key;
  SetCurrentRow(std::move(row), isSame ? position_ : std::nullopt, Place::kEmpty);
}

std::int64_t RecordSet::AbsolutePosition() {
  Engine& engine = OpenEngine();
  if (isNew_) return kPositionUnknown;
  switch (place_) {
    case Place::kBof:
      return kPositionBof;
    case Place::kEof:
      return kPositionEof;
    case Place::kEmpty:
    case Place::kDeleted:
      return kPositionUnknown;
    case Place::kRow:
      break;
  }
  if (!position_ || engine.Changes() != changesSeen_) position_ = rows_->CountUpTo(row_->key);
  return *position_;
}

std::int64_t RecordSet::RecordCount() {
  Engine& engine = OpenEngine();
  if (cursorType_ == CursorType::kForwardOnly) return -1;
  if (!count_ || engine.Changes() != changesSeen_) count_ = rows_->Count();
  return *count_;
}

void RecordSet::SetFilter(const std::string& filter) {
  Engine& engine = OpenEngine();
  LeaveRow();
  auto rows = MakeRowSource(engine, *selection_, filter.empty() ? std::string() : TranslateCondition(filter));
  RowPointer first = rows->First();
  rows_ = std::move(rows);
  filter_ = filter;
  count_.reset();
  SetCurrentRow(std::move(first), 1, Place::kEmpty);
}

int RecordSet::FieldCount() const {
  RequireOpen();
  return static_cast<int>(selection_->fields.size());
}

void RecordSet::RequireField(int index) const {
  if (index < 0 || index >= FieldCount()) throw UnknownItem();
}

const std::string& RecordSet::FieldName(int index) const {
  RequireField(index);
  return selection_->fields[static_cast<std::size_t>(index)];
}

std::optional<int> RecordSet::FindField(std::string_view name) const {
  for (int i = 0; i < FieldCount(); ++i) {
    if (SameName(selection_->fields[static_cast<std::size_t>(i)], name)) return i;
  }
  return {};
}

int RecordSet::RequireField(std::string_view name) const {
  const std::optional<int> index = FindField(name);
  if (!index) throw UnknownItem();
  return *index;
}

const core::Value& RecordSet::FieldValue(int index) const {
  static const core::Value kNull;
  RequireField(index);
  const auto at = static_cast<std::size_t>(index);
  if (!isNew_ && place_ != Place::kRow) throw NoCurrentRecord();
  if (at < pending_.size() && pending_[at]) return *pending_[at];
  return isNew_ ? kNull : row_->values.at(at);
}

const core::Value& RecordSet::FieldValue(std::string_view name) const { return FieldValue(RequireField(name)); }

}  // namespace tonalith::data
