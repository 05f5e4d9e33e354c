// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/row_cursor.h"

#include <utility>

#include "data/data_failure.h"
#include "data/engine.h"
#include "data/record_set.h"

namespace tonalith::data {

RowCursor::RowCursor(Engine& engine, std::unique_ptr<RowSource> rows)
    : engine_(engine), rows_(std::move(rows)), changesSeen_(engine.Changes()) {
  GoToFirst();
}

void RowCursor::SetCurrent(RowPointer row, std::optional<std::int64_t> position, Place otherwise) {
  place_ = row == nullptr ? otherwise : Place::kRow;
  position_ = position;
  row_ = std::move(row);
}

void RowCursor::RequireRows() const {
  if (place_ == Place::kEmpty) throw NoCurrentRecord();
}

void RowCursor::MoveFirst() {
  GoToFirst();
  RequireRows();
}

void RowCursor::MoveLast() {
  SetCurrent(rows_->Last(), count_, Place::kEmpty);
  RequireRows();
}

void RowCursor::MoveNext() {
  if (place_ == Place::kBof) return GoToFirst();
  if (IsEof()) throw NoCurrentRecord();
  // The row after a deleted row already has its position.
  std::optional<std::int64_t> position = position_;
  if (position && place_ == Place::kRow) ++*position;
  RowPointer next = rows_->After(row_->key);
  const bool isEmpty = next == nullptr && place_ == Place::kDeleted && rows_->First() == nullptr;
  SetCurrent(std::move(next), position, isEmpty ? Place::kEmpty : Place::kEof);
}

void RowCursor::MovePrevious() {
  if (IsBof()) throw NoCurrentRecord();
  if (place_ == Place::kEof) return SetCurrent(rows_->Last(), count_, Place::kEmpty);
  std::optional<std::int64_t> position = position_;
  if (position) --*position;
  RowPointer previous = rows_->Before(row_->key);
  const bool isEmpty = previous == nullptr && place_ == Place::kDeleted && rows_->First() == nullptr;
  SetCurrent(std::move(previous), position, isEmpty ? Place::kEmpty : Place::kBof);
}

bool RowCursor::MoveTo(std::int64_t key) {
  RowPointer row = rows_->At(key);
  if (row == nullptr) return false;
  const bool isSame = place_ == Place::kRow && row_->key == key;
  SetCurrent(std::move(row), isSame ? position_ : std::nullopt, Place::kEmpty);
  return true;
}

std::int64_t RowCursor::Position() {
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
  if (!position_ || engine_.Changes() != changesSeen_) position_ = rows_->CountUpTo(row_->key);
  return *position_;
}

std::int64_t RowCursor::Count() {
  if (!count_ || engine_.Changes() != changesSeen_) count_ = rows_->Count();
  return *count_;
}

void RowCursor::DropRows() {
  rows_->DropCache();
  changesSeen_ = engine_.Changes();
  count_.reset();
}

void RowCursor::DropStaleRows() {
  if (engine_.Changes() == changesSeen_) return;
  DropRows();
  position_.reset();
}

void RowCursor::Requery() {
  DropRows();
  GoToFirst();
}

void RowCursor::Resync() {
  rows_->DropCache();
  RowPointer row = rows_->At(row_->key);
  if (row == nullptr) throw RowVanished();
  row_ = std::move(row);
}

void RowCursor::RequireUnchanged() {
  rows_->DropCache();
  const RowPointer now = rows_->At(row_->key);
  if (now != nullptr && now->values != row_->values) throw RowChanged();
}

void RowCursor::TakeWritten(Row row, std::optional<std::int64_t> position) {
  DropRows();
  RowPointer read = rows_->At(row.key);
  SetCurrent(read != nullptr ? std::move(read) : std::make_shared<const Row>(std::move(row)), position, Place::kEmpty);
}

void RowCursor::AfterUpdate(Row row) { TakeWritten(std::move(row), position_); }

void RowCursor::AfterInsert(Row row) { TakeWritten(std::move(row), std::nullopt); }

void RowCursor::AfterDelete() {
  DropRows();
  place_ = Place::kDeleted;
}

}  // namespace tonalith::data
