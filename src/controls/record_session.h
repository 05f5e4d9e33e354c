// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The open record source of a data control, without a widget: a connection, its record set and the result of its last
// write. A row that was changed elsewhere is overwritten only if the OnConflict callback agrees. The callback may close
// the session; the owner keeps it alive until Run returns. User-interface thread.

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/value.h"
#include "data/connection.h"
#include "data/record_set.h"

namespace tonalith::controls {

class RecordSession {
 public:
  using Step = std::function<void(data::RecordSet&)>;
  using FieldValues = std::vector<std::pair<std::string, core::Value>>;
  /// Resolves a pending edit whose row was changed elsewhere: overwrite the row, or drop the edit and read the row
  /// again. The latter cancels the operation with a failure that is not reported.
  enum class Conflict { kOverwrite, kTakeOther };

  void SetConnectionString(std::string connectionString) { connectionString_ = std::move(connectionString); }
  [[nodiscard]] const std::string& ConnectionString() const { return connectionString_; }
  void SetRecordSource(std::string source) { recordSource_ = std::move(source); }
  void SetLockType(data::LockType lockType) { lockType_ = lockType; }
  /// Without a callback the write is refused.
  void OnConflict(std::function<Conflict()> decide) { decideConflict_ = std::move(decide); }

  /// Closes and opens again, at the first row. After a failure the session is closed.
  void Open();
  /// Drops a pending edit.
  void Close();

  /// nullptr if the session is closed.
  [[nodiscard]] data::RecordSet* Recordset() const { return recordset_.get(); }
  /// Throws 3704 if the session is closed.
  [[nodiscard]] data::RecordSet& OpenRecordset() const;
  [[nodiscard]] bool HasRecord() const;
  /// No value for a new row and without a current row.
  [[nodiscard]] std::optional<data::Bookmark> CurrentBookmark() const;

  [[nodiscard]] bool IsEditPending() const { return recordset_ != nullptr && recordset_->IsEditPending(); }
  /// The description of the failure, if a write of the unchanged pending edit has failed; otherwise empty.
  [[nodiscard]] std::string Refusal() const { return IsEditPending() ? refusal_ : std::string(); }

  /// Runs a step that may write a pending edit, and again after each conflict that is resolved with kOverwrite.
  void Run(const Step& step);
  void AddNew(const FieldValues& defaults);
  void SetFieldValue(const std::string& field, const core::Value& value);
  /// The next row becomes current, else the new last row, else none.
  void Delete();
  void CancelUpdate();

 private:
  void RunUntilResolved(const Step& step);
  void ResolveConflict();

  std::string connectionString_;
  std::string recordSource_;
  std::shared_ptr<data::Connection> connection_;
  std::unique_ptr<data::RecordSet> recordset_;
  data::LockType lockType_ = data::LockType::kOptimistic;
  std::function<Conflict()> decideConflict_;
  std::string refusal_;
};

}  // namespace tonalith::controls
