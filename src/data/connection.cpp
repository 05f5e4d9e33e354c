// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/connection.h"

#include <utility>

#include "core/failure.h"
#include "data/connection_string.h"
#include "data/data_failure.h"
#include "data/database_file.h"
#include "data/engine.h"
#include "data/engine_cache.h"
#include "data/messages.h"
#include "data/sql_tokens.h"

namespace tonalith::data {

Connection::Connection() = default;
Connection::Connection(std::shared_ptr<EngineCache> cache) : cache_(std::move(cache)) {}
Connection::~Connection() { ReleaseEngine(); }

void Connection::SetMode(ConnectMode mode) {
  if (IsOpen()) throw ObjectAlreadyOpen();
  mode_ = mode;
}

void Connection::SetWhileReading(std::function<void(std::int64_t rows)> whileReading) {
  if (IsOpen()) throw ObjectAlreadyOpen();
  whileReading_ = std::move(whileReading);
}

void Connection::SetProvider(std::string provider) {
  if (IsOpen()) throw ObjectAlreadyOpen();
  provider_ = std::move(provider);
}

void Connection::SetConnectionString(std::string connectionString) {
  if (IsOpen()) throw ObjectAlreadyOpen();
  connectionString_ = std::move(connectionString);
}

const std::string& Connection::ConnectionString() const { return IsOpen() ? expandedString_ : connectionString_; }

void Connection::Open() { OpenAs({}, {}); }

void Connection::Open(std::string connectionString, const std::string& user, const std::string& password) {
  SetConnectionString(std::move(connectionString));
  OpenAs(user, password);
}

void Connection::OpenAs(const std::string& user, const std::string& password) {
  if (IsOpen()) throw ObjectAlreadyOpen();
  ConnectionSettings settings = ParseConnectionString(connectionString_);
  if (settings.provider.empty()) settings.provider = provider_;
  if (mode_ == ConnectMode::kRead) settings.isReadOnly = true;
  if (!user.empty()) settings.user = user;
  if (!password.empty()) settings.password = password;
  if (!SameName(settings.provider, kProvider)) throw UnknownProvider();
  if (!settings.password.empty() || (!settings.user.empty() && !SameName(settings.user, "Admin"))) {
    throw core::Failure(failure_number::kNotAuthorised, MessageId::kWrongAccount);
  }
  if (cache_ != nullptr) engine_ = cache_->Take(settings.dataSource, settings.isReadOnly);
  if (engine_ == nullptr) {
    engine_ = std::make_shared<Engine>(RequireDatabaseFile(settings.dataSource), settings.isReadOnly, whileReading_);
  }
  settings.dataSource = engine_->Path();
  expandedString_ = ExpandedConnectionString(settings);
}

void Connection::Close() {
  OpenEngine();
  ReleaseEngine();
}

void Connection::ReleaseEngine() {
  if (cache_ != nullptr && engine_ != nullptr) cache_->Put(std::move(*engine_));
  engine_.reset();
}

bool Connection::IsReadOnly() const { return OpenEngine().IsReadOnly(); }

core::Message Connection::NoticeText() const {
  const Engine& engine = OpenEngine();
  const SchemaGuard& guard = engine.Guard();
  if (guard.replacesQuery && guard.stopsWriting) return {MessageId::kForeignQueryAndTriggers, engine.Path()};
  if (guard.replacesQuery) return {MessageId::kForeignQuery, engine.Path()};
  if (guard.stopsTriggers) return {MessageId::kForeignTriggers, engine.Path()};
  return {};
}

Engine& Connection::OpenEngine() const {
  if (engine_ == nullptr) throw ObjectClosed();
  return *engine_;
}

void Connection::BeginTrans() {
  if (OpenEngine().IsInTransaction()) throw TransactionActive();
  engine_->Execute("BEGIN IMMEDIATE");
}

void Connection::CommitTrans() {
  if (!OpenEngine().IsInTransaction()) throw NoTransaction();
  engine_->Execute("COMMIT");
}

void Connection::RollbackTrans() {
  if (!OpenEngine().IsInTransaction()) throw NoTransaction();
  engine_->Execute("ROLLBACK");
}

std::uint64_t Connection::StatementsIssued() { return Engine::StatementsIssued(); }

}  // namespace tonalith::data
