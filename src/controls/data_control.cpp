// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/data_control.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>

#include "controls/accessible_data_control.h"
#include "controls/arrow_button.h"
#include "data/data_failure.h"
#include "paint/panel_painting.h"
#include "paint/theme.h"

namespace tonalith::controls {

DataControl::DataControl(const QString& name, const QString& caption, core::MsgBox& msgBox, QWidget* parent)
    : QFrame(parent), msgBox_(msgBox), caption_(new QLabel(caption, this)) {
  InstallAccessibleDataControl();
  setObjectName(name);
  setAccessibleName(caption);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(1, 1, 1, 1);
  row->setSpacing(0);
  AddArrow(QT_TR_NOOP("First record"), static_cast<int>(ArrowButton::Kind::kFirst), &DataControl::MoveFirst);
  AddArrow(QT_TR_NOOP("Previous record"), static_cast<int>(ArrowButton::Kind::kPrevious), &DataControl::MovePrevious);
  caption_->setObjectName(name + QStringLiteral("Caption"));
  caption_->setAlignment(Qt::AlignCenter);
  row->addWidget(caption_, 1);
  AddArrow(QT_TR_NOOP("Next record"), static_cast<int>(ArrowButton::Kind::kNext), &DataControl::MoveNext);
  AddArrow(QT_TR_NOOP("Last record"), static_cast<int>(ArrowButton::Kind::kLast), &DataControl::MoveLast);
}

DataControl::~DataControl() { records_->Close(); }

void DataControl::AddArrow(const char* name, int kind, Move step) {
  auto* const button = new ArrowButton(QLatin1String(name), tr(name), static_cast<ArrowButton::Kind>(kind), this);
  layout()->addWidget(button);
  connect(button, &QAbstractButton::clicked, this, [this, step] { RunMove(step); });
}

void DataControl::RunMove(Move step) {
  core::DeferredFailure failure;
  core::MsgBox& msgBox = msgBox_;
  failure.Try([&] { (this->*step)(); });
  Report(failure, msgBox);
}

void DataControl::Report(core::DeferredFailure& failure, core::MsgBox& msgBox) {
  const bool isCancelled = failure.Pending() && failure.Pending()->Number() == data::failure_number::kCancelled;
  if (isCancelled) failure.Clear();
  failure.ReportDescription(msgBox);
}

void DataControl::Bind(const std::string& field, std::function<void(const core::Value&)> take) {
  bindings_.push_back({field, std::move(take)});
}

core::Value DataControl::FieldValue(int index) const {
  return HasRecord() ? Recordset()->FieldValue(index) : core::Value::Null();
}

void DataControl::UpdateBoundControls() {
  const bool row = HasRecord();
  for (const Binding& binding : bindings_) {
    binding.take(row ? Recordset()->FieldValue(binding.field) : core::Value::Null());
  }
  AnnouncePosition(*this);
  if (quiet_ == 0) Q_EMIT Moved();
}

QString DataControl::PositionText() const {
  if (!HasRecord()) return {};
  try {
    const std::int64_t position = Recordset()->AbsolutePosition();
    if (position < 1) return {};
    return tr("%1 of %2").arg(position).arg(Recordset()->RecordCount());
  } catch (const core::Failure&) {
    // The next command that needs the rows reports the failure.
    return {};
  }
}

// Rows are counted only when the pointer rests on the bar.
bool DataControl::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) setToolTip(PositionText());
  return QFrame::event(event);
}

void DataControl::Refresh() {
  try {
    records_->Open();
  } catch (const std::exception&) {
    UpdateBoundControls();
    throw;
  }
  UpdateBoundControls();
}

void DataControl::MoveAndUpdate(const RecordSession::Step& step) {
  const std::shared_ptr<RecordSession> records = records_;
  const std::optional<data::Bookmark> before = CurrentBookmark();
  const bool wasPending = IsEditPending();
  const auto notify = [&] {
    if (wasPending || CurrentBookmark() != before) UpdateBoundControls();
    if (wasPending && !IsEditPending()) Q_EMIT Written();
  };
  const QPointer<DataControl> self = this;
  try {
    records->Run(step);
  } catch (const std::exception&) {
    // The message box of a conflict processes events, which may destroy the control. A write may have succeeded and
    // only the following move failed.
    if (!self.isNull() && !IsEditPending()) notify();
    throw;
  }
  notify();
}

void DataControl::MoveIfRecord(const RecordSession::Step& step) {
  if (HasRecord()) MoveAndUpdate(step);
}

void DataControl::AddNew(const FieldValues& defaults) {
  UpdateBatch();
  records_->AddNew(defaults);
  UpdateBoundControls();
}

void DataControl::Delete() {
  if (IsEditPending() && !CurrentBookmark().has_value()) {
    CancelUpdate();
    return;
  }
  records_->Delete();
  UpdateBoundControls();
  Q_EMIT Written();
}

void DataControl::UpdateBatch() {
  if (IsEditPending()) MoveAndUpdate([](data::RecordSet& rows) { rows.UpdateBatch(); });
}

void DataControl::CancelUpdate() {
  if (!IsEditPending()) return;
  records_->CancelUpdate();
  UpdateBoundControls();
}

void DataControl::MoveFirst() {
  MoveIfRecord([](data::RecordSet& rows) { rows.MoveFirst(); });
}

void DataControl::MovePrevious() {
  MoveIfRecord([](data::RecordSet& rows) {
    rows.MovePrevious();
    if (rows.IsBof()) rows.MoveFirst();
  });
}

void DataControl::MoveNext() {
  MoveIfRecord([](data::RecordSet& rows) {
    rows.MoveNext();
    if (rows.IsEof()) rows.MoveLast();
  });
}

void DataControl::MoveLast() {
  MoveIfRecord([](data::RecordSet& rows) { rows.MoveLast(); });
}

void DataControl::SetBookmark(data::Bookmark bookmark) {
  if (Recordset() != nullptr) MoveAndUpdate([bookmark](data::RecordSet& rows) { rows.SetBookmark(bookmark); });
}

void DataControl::SetBookmarkIfExists(data::Bookmark bookmark) {
  try {
    SetBookmark(bookmark);
  } catch (const core::Failure& failure) {
    if (failure.Number() != data::failure_number::kInvalidBookmark) throw;
  }
}

void DataControl::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paint::PaintPanel(painter, rect(), palette().color(QPalette::Button), paint::OutlineColour(palette()), false);
}

}  // namespace tonalith::controls
