// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/record_session.h"

#include <exception>

#include "core/failure.h"
#include "data/data_failure.h"

namespace tonalith::controls {

void RecordSession::Open() {
  Close();
  auto connection = std::make_shared<data::Connection>();
  connection->Open(connectionString_);
  auto recordset = std::make_unique<data::RecordSet>();
  recordset->Open(recordSource_, connection, data::CursorType::kKeyset, lockType_);
  connection_ = std::move(connection);
  recordset_ = std::move(recordset);
}

void RecordSession::Close() {
  refusal_.clear();
  recordset_.reset();
  connection_.reset();
}

data::RecordSet& RecordSession::OpenRecordset() const {
  if (recordset_ == nullptr) throw data::ObjectClosed();
  return *recordset_;
}

bool RecordSession::HasRecord() const {
  return recordset_ != nullptr && recordset_->IsOpen() && !recordset_->IsBof() && !recordset_->IsEof();
}

std::optional<data::Bookmark> RecordSession::CurrentBookmark() const {
  if (!HasRecord()) return std::nullopt;
  try {
    return recordset_->GetBookmark();
  } catch (const core::Failure& failure) {
    // A new row has no bookmark.
    if (failure.Number() != data::failure_number::kNoCurrentRecord) throw;
    return std::nullopt;
  }
}

void RecordSession::Run(const Step& step) {
  try {
    RunUntilResolved(step);
  } catch (const std::exception& failure) {
    refusal_ = IsEditPending() ? failure.what() : "";
    throw;
  }
  refusal_.clear();
}

void RecordSession::RunUntilResolved(const Step& step) {
  for (;;) {
    try {
      return step(OpenRecordset());
    } catch (const core::Failure& failure) {
      if (failure.Number() != data::failure_number::kRowChanged || !decideConflict_) throw;
    }
    ResolveConflict();
  }
}

void RecordSession::ResolveConflict() {
  const Conflict decision = decideConflict_();
  if (!IsEditPending()) throw data::Cancelled();
  if (decision == Conflict::kTakeOther) recordset_->CancelUpdate();
  recordset_->Resync();
  if (decision == Conflict::kTakeOther) throw data::Cancelled();
}

void RecordSession::AddNew(const FieldValues& defaults) {
  data::RecordSet& rows = OpenRecordset();
  rows.AddNew();
  for (const auto& [field, value] : defaults) rows.SetFieldValue(field, value);
  refusal_.clear();
}

void RecordSession::SetFieldValue(const std::string& field, const core::Value& value) {
  OpenRecordset().SetFieldValue(field, value);
  refusal_.clear();
}

void RecordSession::Delete() {
  data::RecordSet& rows = OpenRecordset();
  rows.Delete();
  rows.MoveNext();
  if (rows.IsEof() && !rows.IsBof()) rows.MoveLast();
  refusal_.clear();
}

void RecordSession::CancelUpdate() {
  OpenRecordset().CancelUpdate();
  refusal_.clear();
}

}  // namespace tonalith::controls
