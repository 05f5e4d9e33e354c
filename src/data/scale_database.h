// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale database of the running program: where its file is, the shared connection and record set, and the few
// questions that the core and the views ask. Made by the application with its folder; lives as long as the program; one
// thread. Each function's line says whether a failure is shown, thrown or both.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/msg_box.h"
#include "core/note_model.h"
#include "data/connection.h"
#include "data/record_set.h"

namespace tonalith::data {

class EngineCache;

inline constexpr std::string_view kDatabaseFileName = "TonalithDB97.mdb";
/// Names the file alone, which is found through the current directory.
inline constexpr std::string_view kConnectionByFileName =
    "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=TonalithDB97.mdb";
inline constexpr std::string_view kAllScalesStatement = "SELECT * FROM ScalesQuery";

/// The by-name statement, every apostrophe of the name doubled.
std::string ScaleByNameStatement(std::string_view scaleName);
/// The by-ID statement; there is no blank between "=" and the number.
std::string ScaleByIdStatement(std::int32_t scaleId);
/// The keyword form of the connection string for a database file.
std::string FullConnectionString(std::string_view databasePath);

class ScaleDatabase {
 public:
  /// `appFolder` without a separator at its end. Opens nothing.
  ScaleDatabase(std::string appFolder, core::MsgBox& msgBox);

  [[nodiscard]] const std::string& AppFolder() const { return appFolder_; }
  /// AppFolder, the system's separator and kDatabaseFileName.
  [[nodiscard]] const std::string& DatabasePath() const { return databasePath_; }
  [[nodiscard]] const std::shared_ptr<Connection>& ScaleConnection() const { return scaleConnection_; }
  [[nodiscard]] const std::shared_ptr<RecordSet>& ScaleRecordset() const { return scaleRecordset_; }

  /// The program's folder.
  [[nodiscard]] std::string GetDBPath() const { return appFolder_; }

  /// Opens the shared connection and the shared record set over all scales. Throws; the application, which binds its
  /// data control next, shows the failure.
  void OpenShared();

  /// A new open connection for the caller to close. On failure one critical message and nothing.
  std::shared_ptr<Connection> OpenScaleConnection();

  /// The semitones of the first scale of that name; empty when there is none. Throws 94 for a null pattern, 13 for a
  /// character that is no digit, and 3709 after the message of OpenScaleConnection.
  std::vector<std::int16_t> GetScaleIntervalsFromDB(const std::string& scaleName);

  /// The pattern of one scale. Replaces the shared connection and record set. Goes on past failures and shows the last
  /// one as number and description in a critical box; returns what was read by then.
  std::string GetScaleIntervalsByID(std::int32_t scaleId);

  /// The note names of a scale from `rootIndex` on, wrapped at the octave; empty when there is no scale of that name.
  /// Throws as GetScaleIntervalsFromDB.
  std::vector<std::string> GetScaleNotes(std::int16_t rootIndex, const std::string& scaleName);

 private:
  std::string appFolder_;
  std::string databasePath_;
  core::MsgBox& msgBox_;
  std::shared_ptr<EngineCache> engineCache_;
  std::shared_ptr<Connection> scaleConnection_;
  std::shared_ptr<RecordSet> scaleRecordset_;
};

}  // namespace tonalith::data
