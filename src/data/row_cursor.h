// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A position among the rows of a record set: on a row, on a deleted row, before the first, after the last, or nowhere
// if there are no rows. Counts rows only when asked, and drops cached rows after a write through the same connection.
// A move that throws leaves the position unchanged. Throws 3021 for a move without a current record, and like the
// engine, which must outlive the cursor. Private to this room.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "data/row_source.h"

namespace tonalith::data {

class RowCursor {
 public:
  /// On the first row, if there is one.
  RowCursor(Engine& engine, std::unique_ptr<RowSource> rows);

  [[nodiscard]] bool IsBof() const { return place_ == Place::kBof || place_ == Place::kEmpty; }
  [[nodiscard]] bool IsEof() const { return place_ == Place::kEof || place_ == Place::kEmpty; }
  [[nodiscard]] bool IsOnRow() const { return place_ == Place::kRow; }
  /// The current row. Requires IsOnRow.
  [[nodiscard]] const Row& Current() const { return *row_; }

  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  /// Returns false and does not move if there is no row with that key.
  [[nodiscard]] bool MoveTo(std::int64_t key);

  /// 1 for the first row; negative as described in record_set.h.
  [[nodiscard]] std::int64_t Position();
  [[nodiscard]] std::int64_t Count();

  /// Drops cached rows that a write through the same connection may have changed.
  void DropStaleRows();
  /// Reads all rows again and moves to the first.
  void Requery();
  /// Reads the current row again. Throws -2147217864 if it is deleted.
  void Resync();
  /// Throws -2147217863 if the current row differs from the database. A row that the filter excludes is not compared.
  void RequireUnchanged();

  /// After a write: the current row, which keeps its position, has these values.
  void AfterUpdate(Row row);
  /// After a write: this new row becomes the current one. It is current until the next move if the filter excludes it.
  void AfterInsert(Row row);
  /// After a write: the current row is deleted.
  void AfterDelete();

 private:
  enum class Place { kEmpty, kBof, kRow, kDeleted, kEof };

  void SetCurrent(RowPointer row, std::optional<std::int64_t> position, Place otherwise);
  void GoToFirst() { SetCurrent(rows_->First(), 1, Place::kEmpty); }
  void RequireRows() const;
  void TakeWritten(Row row, std::optional<std::int64_t> position);
  void DropRows();

  Engine& engine_;
  std::unique_ptr<RowSource> rows_;
  Place place_ = Place::kEmpty;
  RowPointer row_;
  std::optional<std::int64_t> position_;
  std::optional<std::int64_t> count_;
  std::uint64_t changesSeen_;
};

}  // namespace tonalith::data
