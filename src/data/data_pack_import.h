// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The unit modDataPackImport: merges the packs in the program's folder into the main database. A scale type is known by
// its number, a scale by its name; what the main database has already is left as it is. One pack is one transaction on
// connections of its own: it arrives whole or not at all, and a pack that fails leaves the others. Packs are only read.
// The main database is found through the current directory. Every pack ends in one message. User-interface thread; used
// by one caller at a time.

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

/// What an observer throws to end an import: what is under way is rolled back, no message is shown, and no further pack
/// is tried.
class ImportStopped : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "the import was stopped"; }
};

/// Receives the progress of an import. The receiver may process pending events in each call.
class DataPackObserver {
 public:
  virtual ~DataPackObserver() = default;
  /// After each pack: packs were imported, and what the window shows may be out of date.
  virtual void DataPackDone() = 0;
  /// `rows` of a Jet pack are read, none of them is merged yet. May throw ImportStopped.
  virtual void ReadingProgress(const std::string& /*path*/, std::int64_t /*rows*/) {}
  /// `rows` of the pack are merged; a transaction is under way. May throw ImportStopped.
  virtual void ImportProgress(const std::string& path, std::int64_t rows) = 0;
};

/// Whether the record set has a field of that name, in any case.
bool FieldExists(const RecordSet& recordset, std::string_view name);

class DataPackImport {
 public:
  /// `appFolder` without a separator at its end. The ports outlive this.
  DataPackImport(std::string appFolder, core::MsgBox& msgBox, DataPackObserver& observer);

  /// Imports every pack in the folder DataPacks and gives their paths, in the order of the file system. No folder is no
  /// packs. Throws when the folder cannot be listed.
  std::vector<std::string> GetAvailableDataPacks();

  /// Imports one pack. Whatever fails is shown, not thrown.
  void ImportDataPack(const std::string& path);

  /// What has been imported so far: packs that arrived, and the scales that they have added.
  struct Totals {
    std::int64_t packs = 0;
    std::int64_t scales = 0;
  };
  [[nodiscard]] const Totals& Imported() const { return imported_; }
  /// Whether the observer has stopped the import.
  [[nodiscard]] bool IsStopped() const { return isStopped_; }

  /// The pack that GetAvailableDataPacks has come to.
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
