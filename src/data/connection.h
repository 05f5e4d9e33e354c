// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A connection to one database file. It is described by a provider and a connection string, opened, and closed at the
// latest by its destructor. Two forms of the string are understood: keywords ("Provider=...;Data Source=...;Mode=...",
// in any case and order, values quoted where needed) and, when the provider is set, the bare path of the file. Opening
// never creates a file; it checks the content, and brings an older file of ours to the present revision. A file or
// folder that cannot be written opens for reading. Held by std::shared_ptr, because record sets keep their connection;
// one thread. Fails by throwing core::Failure with a description that names the file; a locked file fails after
// kBusyMilliseconds.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tonalith::data {

class Engine;
class EngineCache;

inline constexpr std::string_view kProvider = "Microsoft.Jet.OLEDB.4.0";
/// How long a statement waits for another program that holds the file.
inline constexpr int kBusyMilliseconds = 300;

/// What a connection may do with its file, whatever its string says.
enum class ConnectMode { kUnknown, kRead };

class Connection {
 public:
  Connection();
  /// Takes over the database that `kept` holds, where it can, and leaves its own there when it closes. To its user it
  /// opens and closes as any other.
  explicit Connection(std::shared_ptr<EngineCache> cache);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// kRead leaves the file and its folder untouched; an older file of ours is then read as it is.
  void SetMode(ConnectMode mode);
  /// Opening a Jet file reads all of it. `whileReading` is called every kWaitStep or so meanwhile, with the rows read
  /// so far; what it throws ends the opening.
  void SetWhileReading(std::function<void(std::int64_t rows)> whileReading);
  void SetProvider(std::string provider);
  [[nodiscard]] const std::string& Provider() const { return provider_; }
  void SetConnectionString(std::string connectionString);
  /// The string that was set; while open, the expanded form with the absolute path, itself a valid connection string.
  [[nodiscard]] const std::string& ConnectionString() const;

  void Open();
  void Open(std::string connectionString, const std::string& user = {}, const std::string& password = {});
  /// Rolls an open transaction back and closes the record sets of this connection with it. Throws 3704 when closed.
  void Close();
  [[nodiscard]] bool IsOpen() const { return engine_ != nullptr; }
  /// Whether the open file can only be read (the file itself, or Mode=Read). A read-only folder shows on writing only.
  [[nodiscard]] bool IsReadOnly() const;

  /// What the user should know about the open file, as a sentence; empty where there is nothing.
  [[nodiscard]] std::string NoticeText() const;

  void BeginTrans();
  void CommitTrans();
  void RollbackTrans();

  /// How many statements record sets and transactions have put to any database since the program began; the checks of
  /// opening are not counted. What one refresh asks is the difference of two readings.
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
