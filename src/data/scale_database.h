// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale database of the running program: the path of its file, the shared connection and record set, and the
// queries of the core and the views. Created by the application; exists as long as the program. The comment of each
// function states whether it shows or throws failures.

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
/// Contains only the file name, which is resolved through the current directory.
inline constexpr std::string_view kConnectionByFileName =
    "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=TonalithDB97.mdb";
inline constexpr std::string_view kAllScalesStatement = "SELECT * FROM ScalesQuery";

/// The by-name statement, with every apostrophe of the name doubled.
std::string ScaleByNameStatement(std::string_view scaleName);
/// The by-ID statement; there is no blank between "=" and the number.
std::string ScaleByIdStatement(std::int32_t scaleId);
/// The connection string with keywords for a database file.
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
  /// Kept: see docs/behaviour.md, Functions without callers.
  [[nodiscard]] std::string GetDBPath() const { return appFolder_; }

  /// Opens the shared connection and the shared record set over all scales. Throws; the application shows the failure.
  void OpenShared();

  /// A new open connection for the caller to close. On failure one critical message and nullptr.
  std::shared_ptr<Connection> OpenScaleConnection();

  /// The intervals of the first scale of that name in semitones; empty if there is none. Throws 94 for a null pattern,
  /// 13 for a character that is not a digit, and 3709 after the message of OpenScaleConnection.
  std::vector<std::int16_t> GetScaleIntervalsFromDB(const std::string& scaleName);

  /// The pattern of one scale. Replaces the shared connection and record set. Continues after failures and shows the
  /// last one as number and description in a critical box; then the pattern may be empty.
  std::string GetScaleIntervalsByID(std::int32_t scaleId);

  /// The note names of a scale from `rootIndex` on, wrapped at the octave; empty if there is no scale of that name.
  /// Throws like GetScaleIntervalsFromDB.
  /// Kept: see docs/behaviour.md, Functions without callers.
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
