// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/record_set.h"

#include <utility>

#include "data/connection.h"
#include "data/data_failure.h"
#include "data/engine.h"
#include "data/pending_edit.h"
#include "data/row_cursor.h"
#include "data/row_source.h"
#include "data/row_writer.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"

namespace tonalith::data {

RecordSet::RecordSet() : edit_(std::make_unique<PendingEdit>()) {}
RecordSet::~RecordSet() = default;

void RecordSet::Open(const std::string& source, std::shared_ptr<Connection> connection, CursorType cursorType,
                     LockType lockType) {
  if (IsOpen()) throw ObjectAlreadyOpen();
  if (connection == nullptr || !connection->IsOpen()) throw InvalidConnection();
  const std::shared_ptr<Engine> engine = connection->engine_;
  auto selection = MakeSelection(*engine, source);
  cursor_ = std::make_unique<RowCursor>(*engine, MakeRowSource(*engine, *selection, {}));

  connection_ = std::move(connection);
  engine_ = engine;
  selection_ = std::move(selection);
  cursorType_ = cursorType;
  lockType_ = lockType;
  filter_.clear();
  edit_->Clear();
}

void RecordSet::Close() {
  RequireOpen();
  if (IsEditPending()) throw NotAllowedHere();
  cursor_.reset();
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
  clone->cursor_ = std::make_unique<RowCursor>(engine, MakeRowSource(engine, *selection, {}));
  clone->connection_ = connection_;
  clone->engine_ = engine_;
  clone->selection_ = std::move(selection);
  clone->cursorType_ = cursorType_;
  clone->lockType_ = lockType_;
  return clone;
}

void RecordSet::Requery() {
  RequireOpen();
  if (IsEditPending()) throw NotAllowedHere();
  cursor_->Requery();
}

bool RecordSet::IsBof() const {
  RequireOpen();
  return !edit_->IsNew() && cursor_->IsBof();
}

bool RecordSet::IsEof() const {
  RequireOpen();
  return !edit_->IsNew() && cursor_->IsEof();
}

void RecordSet::RequireScrollable() const {
  if (cursorType_ == CursorType::kForwardOnly) throw OperationNotSupported();
}

RowCursor& RecordSet::LeaveRow() {
  RequireOpen();
  if (IsEditPending()) WritePending();
  cursor_->DropStaleRows();
  return *cursor_;
}

void RecordSet::MoveFirst() { LeaveRow().MoveFirst(); }

void RecordSet::MoveLast() {
  RequireOpen();
  RequireScrollable();
  LeaveRow().MoveLast();
}

void RecordSet::MoveNext() { LeaveRow().MoveNext(); }

void RecordSet::MovePrevious() {
  RequireOpen();
  RequireScrollable();
  LeaveRow().MovePrevious();
}

Bookmark RecordSet::GetBookmark() const {
  RequireOpen();
  RequireScrollable();
  if (edit_->IsNew() || !cursor_->IsOnRow()) throw NoCurrentRecord();
  return {cursor_->Current().key};
}

void RecordSet::SetBookmark(Bookmark bookmark) {
  RequireOpen();
  RequireScrollable();
  if (!LeaveRow().MoveTo(bookmark.key)) throw InvalidBookmark();
}

std::int64_t RecordSet::AbsolutePosition() {
  RequireOpen();
  return edit_->IsNew() ? kPositionUnknown : cursor_->Position();
}

std::int64_t RecordSet::RecordCount() {
  RequireOpen();
  return cursorType_ == CursorType::kForwardOnly ? -1 : cursor_->Count();
}

void RecordSet::SetFilter(const std::string& filter) {
  Engine& engine = OpenEngine();
  LeaveRow();
  const std::string condition = filter.empty() ? std::string() : TranslateCondition(filter);
  cursor_ = std::make_unique<RowCursor>(engine, MakeRowSource(engine, *selection_, condition));
  filter_ = filter;
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

const Row* RecordSet::RowToEdit() const {
  if (edit_->IsNew()) return nullptr;
  if (!cursor_->IsOnRow()) throw NoCurrentRecord();
  return &cursor_->Current();
}

const core::Value& RecordSet::FieldValue(int index) const {
  static const core::Value kNull;
  RequireField(index);
  const auto at = static_cast<std::size_t>(index);
  const Row* const row = RowToEdit();
  if (const core::Value* const set = edit_->Find(at)) return *set;
  return row == nullptr ? kNull : row->values.at(at);
}

const core::Value& RecordSet::FieldValue(std::string_view name) const { return FieldValue(RequireField(name)); }

void RecordSet::RequireUpdatable() const {
  RequireOpen();
  if (lockType_ == LockType::kReadOnly || !selection_->walk) throw UpdatingNotSupported();
}

void RecordSet::SetFieldValue(int index, core::Value value) {
  RequireUpdatable();
  RequireField(index);
  edit_->Set(static_cast<std::size_t>(index), selection_->fields.size(), std::move(value), RowToEdit());
}

void RecordSet::SetFieldValue(std::string_view name, core::Value value) {
  RequireOpen();
  SetFieldValue(RequireField(name), std::move(value));
}

void RecordSet::AddNew() {
  RequireUpdatable();
  LeaveRow();
  edit_->StartNewRow();
}

void RecordSet::CancelUpdate() {
  RequireOpen();
  edit_->Clear();
}

bool RecordSet::IsEditPending() const { return edit_->IsPending(); }

void RecordSet::Resync() {
  RequireOpen();
  if (edit_->IsNew() || !cursor_->IsOnRow()) throw NoCurrentRecord();
  cursor_->Resync();
}

void RecordSet::Update() {
  RequireUpdatable();
  if (IsEditPending() && lockType_ != LockType::kBatchOptimistic) WritePending();
}

void RecordSet::UpdateBatch() {
  RequireUpdatable();
  if (IsEditPending()) WritePending();
}

void RecordSet::WritePending() { RowWriter(OpenEngine(), *selection_, *cursor_).Write(*edit_); }

void RecordSet::Delete() {
  RequireUpdatable();
  if (edit_->IsNew()) throw NotAllowedHere();
  if (!cursor_->IsOnRow()) throw NoCurrentRecord();
  RowWriter(OpenEngine(), *selection_, *cursor_).Delete();
  edit_->Clear();
}

}  // namespace tonalith::data
