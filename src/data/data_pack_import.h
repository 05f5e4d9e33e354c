// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The unit modDataPackImport: merges the packs in the program's folder into the main database. A scale type is
// identified by its number, a scale by its name; existing rows are not changed. Each pack is one transaction on
// separate connections: it is imported completely or not at all, and a failed pack does not affect the others. Packs
// are only read. The main database is found through the current directory. Each pack ends in one message.
// User-interface thread.

#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "core/msg_box.h"
#include "data/record_set.h"

namespace tonalith::data {

/// The rows between two calls of DataPackObserver::ImportProgress.
inline constexpr std::int64_t kRowsPerProgress = 256;

/// Thrown by an observer to stop an import: the current pack is rolled back, no message is shown, and no further pack
/// is imported.
class ImportStopped : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "the import was stopped"; }
};

/// Receives the progress of an import. The receiver may process pending events in each call.
class DataPackObserver {
 public:
  virtual ~DataPackObserver() = default;
  /// Called after each pack: the content of the window may be out of date.
  virtual void DataPackDone() = 0;
  /// `rows` of a Jet pack are read and not merged yet. May throw ImportStopped.
  virtual void ReadingProgress(const std::string& /*path*/, std::int64_t /*rows*/) {}
  /// `rows` of the pack are merged; a transaction is open. May throw ImportStopped.
  virtual void ImportProgress(const std::string& path, std::int64_t rows) = 0;
};

/// Whether the record set has a field of that name, in any case.
bool FieldExists(const RecordSet& recordset, std::string_view name);

class DataPackImport {
 public:
  /// `appFolder` without a separator at its end.
  DataPackImport(std::string appFolder, core::MsgBox& msgBox, DataPackObserver& observer);

  /// Imports every pack in the folder DataPacks and returns their paths, in the order of the file system. A missing
  /// folder is like an empty one. Throws if the folder cannot be listed.
  std::vector<std::string> GetAvailableDataPacks();

  /// Imports one pack. Failures are shown, not thrown.
  void ImportDataPack(const std::string& path);

  /// Imported packs and added scales so far.
  struct Totals {
    std::int64_t packs = 0;
    std::int64_t scales = 0;
  };
  [[nodiscard]] const Totals& Imported() const { return imported_; }
  /// Whether the observer has stopped the import.
  [[nodiscard]] bool IsStopped() const { return isStopped_; }

  /// The current pack of GetAvailableDataPacks.
  [[nodiscard]] const std::string& CurrentPack() const { return currentPack_; }

 private:
  [[nodiscard]] std::vector<std::string> ListDataPacks() const;

  std::string appFolder_;
  core::MsgBox& msgBox_;
  DataPackObserver& observer_;
  std::string currentPack_;
  Totals imported_;
  bool isStopped_ = false;
};

}  // namespace tonalith::data
