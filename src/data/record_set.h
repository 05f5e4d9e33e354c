// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A cursor over the rows of a table, a stored query or a SELECT in Tonalith's SQL dialect. It is on a row, before the
// first (BOF) or after the last (EOF). Rows of one table or stored query are read by key in blocks, so time and memory
// do not depend on their number, and can be changed; any other SELECT is read completely and is read-only. The current
// row can have one pending edit. A move saves it; if that fails, the move throws and the row and the edit stay. Deletes
// take effect at once with any lock. Shares its connection and is closed with it. Failure numbers: 3704 if closed, 3021
// without a current record, 3265 for an unknown field, 3251 if the lock or cursor does not allow the operation, and
// -2147217863 if another connection has changed the row since it was read.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/value.h"

namespace tonalith::data {

class Connection;
class Engine;
class PendingEdit;
class RowCursor;
struct Row;
struct Selection;

enum class CursorType { kForwardOnly, kKeyset, kDynamic, kStatic };
enum class LockType { kReadOnly, kPessimistic, kOptimistic, kBatchOptimistic };

/// The key of a row: equal in every clone, valid after Requery, invalid after the row is deleted.
struct Bookmark {
  std::int64_t key = 0;
  bool operator==(const Bookmark&) const = default;
};

/// Results of AbsolutePosition without a row number.
inline constexpr std::int64_t kPositionUnknown = -1;
inline constexpr std::int64_t kPositionBof = -2;
inline constexpr std::int64_t kPositionEof = -3;

class RecordSet {
 public:
  RecordSet();
  ~RecordSet();
  RecordSet(const RecordSet&) = delete;
  RecordSet& operator=(const RecordSet&) = delete;

  /// Opens `source` (a SELECT, or the bare name of a table or stored query) and moves to the first row, if any.
  void Open(const std::string& source, std::shared_ptr<Connection> connection,
            CursorType cursorType = CursorType::kKeyset, LockType lockType = LockType::kReadOnly);
  /// Throws 3219 while an edit is pending. The destructor discards a pending edit.
  void Close();
  [[nodiscard]] bool IsOpen() const;
  /// A second cursor over the same rows, without the filter, on the first row.
  [[nodiscard]] std::unique_ptr<RecordSet> Clone() const;
  /// The same with only these fields, in this order, which makes an iteration faster. Its filter may name the others.
  [[nodiscard]] std::unique_ptr<RecordSet> Clone(const std::vector<std::string>& fields) const;
  /// Reads from the database again and moves to the first row. Throws 3219 while an edit is pending.
  void Requery();

  [[nodiscard]] bool IsBof() const;
  [[nodiscard]] bool IsEof() const;
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();

  [[nodiscard]] Bookmark GetBookmark() const;
  /// Moves to that row. Throws -2147217906 and does not move if the row is deleted or filtered out.
  void SetBookmark(Bookmark bookmark);
  /// 1 for the first row; kPositionUnknown on a new or deleted row or without rows.
  [[nodiscard]] std::int64_t AbsolutePosition();
  /// -1 for a forward-only cursor.
  [[nodiscard]] std::int64_t RecordCount();

  /// A condition in the SQL dialect, such as "ScaleTypeID=5"; empty for none. Moves to the first matching row.
  void SetFilter(const std::string& filter);
  [[nodiscard]] const std::string& Filter() const { return filter_; }

  [[nodiscard]] int FieldCount() const;
  [[nodiscard]] const std::string& FieldName(int index) const;
  /// The index of a field by its name in any case.
  [[nodiscard]] std::optional<int> FindField(std::string_view name) const;
  /// The content in the current row, including the pending edit.
  [[nodiscard]] const core::Value& FieldValue(int index) const;
  [[nodiscard]] const core::Value& FieldValue(std::string_view name) const;
  void SetFieldValue(int index, core::Value value);
  void SetFieldValue(std::string_view name, core::Value value);

  /// Starts a new row of null fields as the current row; fields that are not set get the defaults of the columns.
  void AddNew();
  void Delete();
  /// Writes the pending edit. With kBatchOptimistic it stays pending until UpdateBatch or a move.
  void Update();
  void UpdateBatch();
  /// Discards the pending edit. After AddNew the previous row is current again.
  void CancelUpdate();
  /// Reads the current row again and keeps the pending edit, which then applies to the new content. Throws 3021 without
  /// a row in the database, -2147217864 if it is deleted.
  void Resync();
  [[nodiscard]] bool IsEditPending() const;

 private:
  void RequireOpen() const;
  void RequireUpdatable() const;
  void RequireScrollable() const;
  [[nodiscard]] Engine& OpenEngine() const;
  [[nodiscard]] std::unique_ptr<RecordSet> CloneOf(std::shared_ptr<const Selection> selection) const;
  [[nodiscard]] int RequireField(std::string_view name) const;
  void RequireField(int index) const;
  /// Saves the pending edit and drops outdated rows, before a move.
  RowCursor& LeaveRow();
  /// nullptr for a new row.
  [[nodiscard]] const Row* RowToEdit() const;
  void WritePending();

  std::shared_ptr<Connection> connection_;
  std::weak_ptr<Engine> engine_;
  std::shared_ptr<const Selection> selection_;
  CursorType cursorType_ = CursorType::kKeyset;
  LockType lockType_ = LockType::kReadOnly;
  std::string filter_;
  std::unique_ptr<RowCursor> cursor_;
  std::unique_ptr<PendingEdit> edit_;
};

}  // namespace tonalith::data
