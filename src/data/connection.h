// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A connection to one database file, given by a provider and a connection string: either keywords ("Provider=...;Data
// Source=...;Mode=...", in any case and order, quoted if needed) or, if the provider is set, the path of the file.
// Opening never creates a file; it checks the content and upgrades an older scale database. A file or folder that
// cannot be written opens read-only. The destructor closes the connection. Owned by std::shared_ptr, because record
// sets share it. Throws after kBusyMilliseconds if the file is locked.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/message.h"

namespace tonalith::data {

class Engine;
class EngineCache;

inline constexpr std::string_view kProvider = "Microsoft.Jet.OLEDB.4.0";
/// How long a statement waits while another program has the file locked.
inline constexpr int kBusyMilliseconds = 300;

/// What a connection may do with its file, regardless of its string.
enum class ConnectMode { kUnknown, kRead };

class Connection {
 public:
  Connection();
  /// Opens with the database in `cache` if possible, and returns its database to `cache` when it closes.
  explicit Connection(std::shared_ptr<EngineCache> cache);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// kRead leaves the file and its folder unchanged; an older scale database is then not upgraded.
  void SetMode(ConnectMode mode);
  /// Opening a Jet file reads all of it. Meanwhile `whileReading` is called about every kWaitStep with the number of
  /// rows read so far; an exception from it ends the opening.
  void SetWhileReading(std::function<void(std::int64_t rows)> whileReading);
  void SetProvider(std::string provider);
  [[nodiscard]] const std::string& Provider() const { return provider_; }
  void SetConnectionString(std::string connectionString);
  /// The string that was set; while open, the expanded form with the absolute path, itself a valid connection string.
  [[nodiscard]] const std::string& ConnectionString() const;

  void Open();
  void Open(std::string connectionString, const std::string& user = {}, const std::string& password = {});
  /// Rolls back an open transaction and closes the record sets of this connection. Throws 3704 if closed.
  void Close();
  [[nodiscard]] bool IsOpen() const { return engine_ != nullptr; }
  /// Whether the open file is read-only (the file itself, or Mode=Read). A read-only folder is detected only by a
  /// write.
  [[nodiscard]] bool IsReadOnly() const;

  /// A notice for the user about the open file; empty if there is none.
  [[nodiscard]] core::Message NoticeText() const;

  void BeginTrans();
  void CommitTrans();
  void RollbackTrans();

  /// The number of statements that record sets and transactions have run on any database since the program started,
  /// without the checks of opening.
  static std::uint64_t StatementsIssued();

 private:
  friend class PackMerge;
  friend class RecordSet;

  void OpenAs(const std::string& user, const std::string& password);
  Engine& OpenEngine() const;
  void ReleaseEngine();

  std::shared_ptr<EngineCache> cache_;
  ConnectMode mode_ = ConnectMode::kUnknown;
  std::function<void(std::int64_t rows)> whileReading_;
  std::string provider_;
  std::string connectionString_;
  std::string expandedString_;
  std::shared_ptr<Engine> engine_;
};

}  // namespace tonalith::data
