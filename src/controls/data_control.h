// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The data control: a record set over the database with its own connection, a bar of four arrow buttons that walk
// through it, and the bound controls that take the current row's values. Every change of the current row emits Moved
// once, after the bound controls have changed, whether or not a value differs from the last one. With a lock that
// allows it the current row can be edited; the edit is pending until UpdateBatch or a move writes it, and a refused
// write keeps it. A row that was changed elsewhere is overwritten only if the window agrees. The arrow buttons report a
// failure as its description; the functions throw it. Owned by its window; user-interface thread.

#pragma once

#include <QFrame>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/deferred_failure.h"
#include "core/msg_box.h"
#include "data/connection.h"
#include "data/record_set.h"

class QAbstractButton;
class QLabel;

namespace tonalith::controls {

class DataControl : public QFrame {
  Q_OBJECT

 public:
  DataControl(const QString& name, const QString& caption, core::MsgBox& msgBox, QWidget* parent);
  ~DataControl() override;

  void SetConnectionString(std::string connectionString) { connectionString_ = std::move(connectionString); }
  [[nodiscard]] const std::string& ConnectionString() const { return connectionString_; }
  void SetRecordSource(std::string source) { recordSource_ = std::move(source); }
  /// Takes effect with the next Refresh.
  void SetLockType(data::LockType lockType) { lockType_ = lockType; }
  /// Opens, or opens again, the record source and stands on its first row. A failure leaves the control unbound. A
  /// pending edit is dropped.
  void Refresh();
  /// Closes the record set and the connection; the bound controls keep what they show.
  void Release();

  /// The record set, nullptr while the control is unbound.
  [[nodiscard]] data::RecordSet* Recordset() const { return recordset_.get(); }
  [[nodiscard]] bool HasRecord() const;
  /// A field of the current row by its position; null without a current row.
  [[nodiscard]] core::Value FieldValue(int index) const;

  /// `take` gets the field's value whenever the current row changes, null when there is none.
  void Bind(const std::string& field, std::function<void(const core::Value&)> take);

  void MoveFirst();
  void MovePrevious();
  void MoveNext();
  void MoveLast();
  void SetBookmark(data::Bookmark bookmark);
  /// Makes that row current if it still exists; otherwise the present row stays.
  void SetBookmarkIfThere(data::Bookmark bookmark);

  /// The fields and contents with which a new row starts.
  using FieldValues = std::vector<std::pair<std::string, core::Value>>;
  /// Begins a new row, pending, and makes it current.
  void AddNew(const FieldValues& defaults);
  /// Changes a field of the current row, pending. The bound controls are not told: one of them is where it comes from.
  void SetFieldValue(const std::string& field, const core::Value& value);
  /// Deletes the current row at once; the next one becomes current, the new last one where there is none, or none. A
  /// new row is only dropped: the row before it is current again.
  void Delete();
  /// Writes what is pending. Nothing is pending, nothing written, while the control is unbound.
  void UpdateBatch();
  /// Drops what is pending; the bound controls take the row as it was.
  void CancelUpdate();
  [[nodiscard]] bool IsEditPending() const { return recordset_ != nullptr && recordset_->IsEditPending(); }
  /// Whether a write of the pending edit, just as it is, has failed already, and with what description.
  [[nodiscard]] bool IsEditRefused() const { return !refusal_.empty() && IsEditPending(); }
  [[nodiscard]] std::string Refusal() const { return IsEditPending() ? refusal_ : std::string(); }
  /// Where the current row is, such as "37 of 338"; empty without one and for a new row. Counts the rows.
  [[nodiscard]] QString PositionText() const;
  /// What becomes of a pending edit whose row was changed elsewhere: it is written all the same, or dropped for the row
  /// as it is now. Then nothing follows the write, and the failure that is thrown needs no report.
  enum class Conflict { kOverwrite, kTakeOther };
  /// `decide` may show a message box. Without it such a write is refused.
  void OnConflict(std::function<Conflict()> decide) { decideConflict_ = std::move(decide); }
  /// Nothing for a new row and without a current row.
  [[nodiscard]] std::optional<data::Bookmark> CurrentBookmark() const;
  /// Shows a pending failure's description, unless the user has decided against the operation.
  static void Report(core::DeferredFailure& failure, core::MsgBox& msgBox);
  using Move = void (DataControl::*)();
  /// One of the moves above, as the arrow buttons make it: a failure is shown as its description.
  void RunMove(Move step);

  /// While one of these lives, moves change the bound controls but emit nothing.
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
  /// `name` in English, whatever the user's language is.
  void AddArrow(const char* name, int kind, Move step);
  void TakeRow();
  [[nodiscard]] data::RecordSet& OpenRecordset() const;
  /// Runs a step that may write what is pending and take another row, and tells the bound controls what it came to.
  template <class Step>
  void MoveAndTake(Step&& step);
  /// Runs the step as often as it meets a conflict that is decided for the pending edit.
  void RunStep(const std::function<void(data::RecordSet&)>& step);
  void SettleConflict();
  /// The same as MoveAndTake where there is a row to leave.
  void Walk(void (*step)(data::RecordSet&));

  core::MsgBox& msgBox_;
  std::string connectionString_;
  std::string recordSource_;
  std::shared_ptr<data::Connection> connection_;
  std::unique_ptr<data::RecordSet> recordset_;
  std::vector<Binding> bindings_;
  data::LockType lockType_ = data::LockType::kOptimistic;
  std::function<Conflict()> decideConflict_;
  std::string refusal_;
  int quiet_ = 0;
  QLabel* caption_;
};

}  // namespace tonalith::controls
