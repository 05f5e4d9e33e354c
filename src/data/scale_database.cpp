// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/scale_database.h"

#include <optional>
#include <utility>

#include "core/deferred_failure.h"
#include "core/paths.h"
#include "core/scale_construction.h"
#include "core/scale_record.h"
#include "core/text.h"
#include "data/engine_cache.h"
#include "data/messages.h"

namespace tonalith::data {
namespace {

using core::MsgBoxStyle;

// The trimmed pattern of the first scale of that name.
// Kept: see docs/behaviour.md, Records of one name share a staff.
std::optional<std::string> PatternByName(const std::shared_ptr<Connection>& connection, const std::string& scaleName) {
  RecordSet records;
  records.Open(ScaleByNameStatement(scaleName), connection, CursorType::kForwardOnly, LockType::kReadOnly);
  std::optional<std::string> pattern;
  if (!records.IsEof()) pattern = std::string(core::Trim(records.FieldValue("ScaleIntervals").AsText()));
  records.Close();
  connection->Close();
  return pattern;
}

void MoveToFirstWithCount(RecordSet& records) {
  if (records.IsEof()) return;
  records.MoveLast();
  records.MoveFirst();
}

}  // namespace

std::string ScaleByNameStatement(std::string_view scaleName) {
  std::string statement = "SELECT ScaleIntervals FROM Scales WHERE ScaleName = '";
  for (const char c : scaleName) statement.append(c == '\'' ? 2 : 1, c);
  return statement + "'";
}

// Kept: see docs/behaviour.md, The by-ID statement has no blank.
std::string ScaleByIdStatement(std::int32_t scaleId) {
  return "SELECT * FROM ScalesQuery WHERE (Scales.ScaleID) =" + std::to_string(scaleId) + ";";
}

std::string FullConnectionString(std::string_view databasePath) {
  return "Provider=" + std::string(kProvider) + ";Data Source=" + std::string(databasePath) +
         ";Mode=ReadWrite|Share Deny None;Persist Security Info=False";
}

ScaleDatabase::ScaleDatabase(std::string appFolder, core::MsgBox& msgBox)
    : appFolder_(std::move(appFolder)),
      databasePath_(appFolder_ + core::kPathSeparator + std::string(kDatabaseFileName)),
      msgBox_(msgBox),
      engineCache_(std::make_shared<EngineCache>()) {}

void ScaleDatabase::OpenShared() {
  scaleConnection_ = std::make_shared<Connection>();
  scaleConnection_->SetProvider(std::string(kProvider));
  scaleConnection_->SetConnectionString(databasePath_);
  scaleConnection_->Open();
  scaleRecordset_ = std::make_shared<RecordSet>();
  scaleRecordset_->Open(std::string(kAllScalesStatement), scaleConnection_, CursorType::kKeyset, LockType::kReadOnly);
  MoveToFirstWithCount(*scaleRecordset_);
}

std::shared_ptr<Connection> ScaleDatabase::OpenScaleConnection() {
  core::DeferredFailure deferred;
  auto connection = std::make_shared<Connection>(engineCache_);
  if (deferred.Try([&] { connection->Open(FullConnectionString(databasePath_)); })) return connection;
  msgBox_.Show({MessageId::kConnectionFailed, deferred.Pending()->Text()}, MsgBoxStyle::kCritical);
  return nullptr;
}

std::vector<std::int16_t> ScaleDatabase::GetScaleIntervalsFromDB(const std::string& scaleName) {
  const std::optional<std::string> pattern = PatternByName(OpenScaleConnection(), scaleName);
  return pattern ? core::IntervalsOf(*pattern) : std::vector<std::int16_t>();
}

std::vector<std::string> ScaleDatabase::GetScaleNotes(std::int16_t rootIndex, const std::string& scaleName) {
  const std::optional<std::string> pattern = PatternByName(OpenScaleConnection(), scaleName);
  return pattern ? core::WrappedScaleNotes(rootIndex, *pattern) : std::vector<std::string>();
}

// Kept: see docs/behaviour.md, GetScaleIntervalsByID replaces the shared connection.
std::string ScaleDatabase::GetScaleIntervalsByID(std::int32_t scaleId) {
  core::DeferredFailure deferred;
  std::string pattern;
  deferred.Try([&] {
    scaleConnection_ = std::make_shared<Connection>();
    scaleConnection_->SetProvider(std::string(kProvider));
    scaleConnection_->SetConnectionString(databasePath_);
    scaleConnection_->Open();
  });
  deferred.Try([&] {
    scaleRecordset_ = std::make_shared<RecordSet>();
    scaleRecordset_->Open(ScaleByIdStatement(scaleId), scaleConnection_, CursorType::kKeyset, LockType::kReadOnly);
  });
  deferred.Try([&] { MoveToFirstWithCount(*scaleRecordset_); });
  deferred.Try([&] { pattern = scaleRecordset_->FieldValue(core::scale_field::kIntervals).AsText(); });
  deferred.ReportNumberAndDescription(msgBox_, MsgBoxStyle::kCritical);
  return pattern;
}

}  // namespace tonalith::data
