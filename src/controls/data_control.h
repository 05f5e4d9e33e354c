// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The data control: a record set with its own connection, four arrow buttons, and bound controls that show the current
// row. Each change of the current row emits Moved once, after the bound controls have changed, also if all values are
// equal. If the lock type permits it, the current row can be edited; the edit is pending until UpdateBatch or a move
// writes it, and stays pending if the write is refused. A row that was changed elsewhere is overwritten only if the
// OnConflict callback agrees. Arrow buttons show the description of a failure; functions throw it. Owned by its window;
// user-interface thread.

#pragma once

#include <QFrame>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/record_session.h"
#include "core/deferred_failure.h"
#include "core/msg_box.h"
#include "data/record_set.h"

class QAbstractButton;
class QLabel;

namespace tonalith::controls {

class DataControl : public QFrame {
  Q_OBJECT

 public:
  DataControl(const QString& name, const QString& caption, core::MsgBox& msgBox, QWidget* parent);
  ~DataControl() override;

  void SetConnectionString(std::string connectionString) { records_->SetConnectionString(std::move(connectionString)); }
  [[nodiscard]] const std::string& ConnectionString() const { return records_->ConnectionString(); }
  void SetRecordSource(std::string source) { records_->SetRecordSource(std::move(source)); }
  /// Takes effect with the next Refresh.
  void SetLockType(data::LockType lockType) { records_->SetLockType(lockType); }
  /// Opens or reopens the record source at its first row. Drops a pending edit. After a failure the control is unbound.
  void Refresh();
  /// Closes the record set and the connection; the bound controls keep their contents.
  void Release() { records_->Close(); }

  /// The record set, nullptr if the control is unbound.
  [[nodiscard]] data::RecordSet* Recordset() const { return records_->Recordset(); }
  [[nodiscard]] bool HasRecord() const { return records_->HasRecord(); }
  /// A field of the current row by its index; null without a current row.
  [[nodiscard]] core::Value FieldValue(int index) const;

  /// `take` receives the value of the field whenever the current row changes; null without a current row.
  void Bind(const std::string& field, std::function<void(const core::Value&)> take);

  void MoveFirst();
  void MovePrevious();
  void MoveNext();
  void MoveLast();
  void SetBookmark(data::Bookmark bookmark);
  /// Makes that row current if it exists; otherwise the current row does not change.
  void SetBookmarkIfExists(data::Bookmark bookmark);

  /// The initial values of a new row.
  using FieldValues = RecordSession::FieldValues;
  /// Adds a pending new row and makes it current.
  void AddNew(const FieldValues& defaults);
  /// Changes a field of the current row; the edit is pending. Does not update the bound controls: one of them is the
  /// source.
  void SetFieldValue(const std::string& field, const core::Value& value) { records_->SetFieldValue(field, value); }
  /// Deletes the current row; the next row becomes current, else the new last row, else none. A pending new row is
  /// dropped, and the row before it is current again.
  void Delete();
  /// Writes a pending edit. Does nothing if the control is unbound.
  void UpdateBatch();
  /// Drops a pending edit and restores the bound controls.
  void CancelUpdate();
  [[nodiscard]] bool IsEditPending() const { return records_->IsEditPending(); }
  /// Whether a write of the unchanged pending edit has failed, and its description.
  [[nodiscard]] bool IsEditRefused() const { return !Refusal().empty(); }
  [[nodiscard]] std::string Refusal() const { return records_->Refusal(); }
  /// The position of the current row, such as "37 of 338"; empty without a row and for a new row. Counts the rows.
  [[nodiscard]] QString PositionText() const;
  using Conflict = RecordSession::Conflict;
  /// `decide` may show a message box. Without it the write of a row that was changed elsewhere is refused.
  void OnConflict(std::function<Conflict()> decide) { records_->OnConflict(std::move(decide)); }
  /// No value for a new row and without a current row.
  [[nodiscard]] std::optional<data::Bookmark> CurrentBookmark() const { return records_->CurrentBookmark(); }
  /// Shows the description of a pending failure, unless the user has cancelled the operation.
  static void Report(core::DeferredFailure& failure, core::MsgBox& msgBox);
  using Move = void (DataControl::*)();
  /// Runs a move as the arrow buttons do: shows the description of a failure.
  void RunMove(Move step);

  /// During its lifetime moves update the bound controls but do not emit Moved.
  class Quiet {
   public:
    explicit Quiet(DataControl& control) : control_(control) { ++control_.quiet_; }
    ~Quiet() { --control_.quiet_; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    DataControl& control_;
  };

 Q_SIGNALS:
  void Moved();
  /// A pending edit was written or a row deleted. Emitted last.
  void Written();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Binding {
    std::string field;
    std::function<void(const core::Value&)> take;
  };
  /// `name` is English in every language.
  void AddArrow(const char* name, int kind, Move step);
  void UpdateBoundControls();
  /// Runs a step that may write a pending edit and change the current row, and updates the bound controls.
  void MoveAndUpdate(const RecordSession::Step& step);
  /// MoveAndUpdate if there is a current row.
  void MoveIfRecord(const RecordSession::Step& step);

  core::MsgBox& msgBox_;
  /// Shared with a running step, whose message box may destroy the control.
  std::shared_ptr<RecordSession> records_ = std::make_shared<RecordSession>();
  std::vector<Binding> bindings_;
  int quiet_ = 0;
  QLabel* caption_;
};

}  // namespace tonalith::controls
