// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/data_failure.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <string_view>
#include <utility>

#include "core/messages.h"
#include "data/messages.h"

namespace tonalith::data {

using core::Failure;
namespace number = failure_number;

Failure NoCurrentRecord() { return {number::kNoCurrentRecord, MessageId::kNoCurrentRecord}; }
Failure NotAllowedHere() { return {number::kNotAllowedHere, MessageId::kNotAllowedHere}; }
Failure UpdatingNotSupported() { return {number::kNotSupported, MessageId::kReadOnlyRecords}; }
Failure OperationNotSupported() { return {number::kNotSupported, MessageId::kOperationNotSupported}; }
Failure UnknownItem() { return {number::kUnknownItem, MessageId::kUnknownItem}; }
Failure ObjectClosed() { return {number::kClosed, MessageId::kObjectClosed}; }
Failure ObjectAlreadyOpen() { return {number::kAlreadyOpen, MessageId::kObjectAlreadyOpen}; }
Failure UnknownProvider() { return {number::kUnknownProvider, MessageId::kUnknownProvider}; }
Failure InvalidConnection() { return {number::kInvalidConnection, MessageId::kInvalidConnection}; }
Failure InvalidBookmark() { return {number::kInvalidBookmark, MessageId::kInvalidBookmark}; }
Failure RowVanished() { return {number::kRowVanished, MessageId::kRowVanished}; }
Failure RowChanged() { return {number::kRowChanged, MessageId::kRowChanged}; }
Failure Cancelled() { return {number::kCancelled, MessageId::kCancelled}; }
Failure NumbersUsedUp(const std::string& path) { return Failure::Unspecified({MessageId::kNumbersUsedUp, path}); }
Failure ViewAsTable(const std::string& path, const std::string& table) {
  return Failure::Unspecified({MessageId::kViewAsTable, path, table});
}
Failure NoTransaction() { return {number::kNoTransaction, MessageId::kNoTransaction}; }
Failure TransactionActive() { return {number::kTransactionActive, MessageId::kTransactionActive}; }
Failure SyntaxError(core::Message text) { return {number::kSyntax, std::move(text)}; }

namespace {

Failure FromStatementError(const std::string& message, const std::string& path) {
  static constexpr std::string_view kNoTable = "no such table: ";
  static constexpr std::string_view kNoField = "no such column: ";
  static constexpr std::string_view kCannotModify = "cannot modify ";
  static constexpr std::string_view kForeignView = "access to view \"";
  const std::string_view text = message;
  if (text.starts_with(kNoTable)) {
    return {number::kUnknownTable, {MessageId::kUnknownTable, path, std::string(text.substr(kNoTable.size()))}};
  }
  if (text.starts_with(kNoField)) {
    return {number::kUnknownField, {MessageId::kUnknownField, std::string(text.substr(kNoField.size()))}};
  }
  if (text.starts_with(kCannotModify)) return UpdatingNotSupported();
  if (text.starts_with(kForeignView)) {
    const std::string_view rest = text.substr(kForeignView.size());
    return ViewAsTable(path, std::string(rest.substr(0, rest.find('"'))));
  }
  return SyntaxError({MessageId::kSyntaxError, message});
}

/// The message that a trigger of the stored query raises. Other triggers do not run; their text would stay as it is.
core::Message OfTrigger(const std::string& text) {
  for (const core::MessageText& entry : CatalogueOf(MessageId())) {
    if (text == entry.english) return core::Message::FromEntry(entry, {});
  }
  return core::Message::Verbatim(text);
}

Failure FromConstraint(int extendedCode, const std::string& message) {
  switch (extendedCode) {
    case SQLITE_CONSTRAINT_TRIGGER:
      return Failure::Unspecified(OfTrigger(message));
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
    case SQLITE_CONSTRAINT_UNIQUE:
      return Failure::Unspecified(MessageId::kDuplicateKey);
    default:
      return Failure::Unspecified({MessageId::kNotSaved, message});
  }
}

}  // namespace

Failure FromEngine(const SQLite::Exception& exception, const std::string& path) {
  const std::string message = exception.what();
  const int code = exception.getErrorCode() & 0xFF;
  switch (code) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return Failure::Unspecified({MessageId::kFileInUse, path});
    case SQLITE_READONLY:
      return Failure::Unspecified({MessageId::kReadOnlyFile, path});
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return Failure::Unspecified({MessageId::kNoAccess, path});
    case SQLITE_FULL:
      return Failure::Unspecified({MessageId::kDiskFull, path});
    case SQLITE_IOERR:
      return Failure::Unspecified({MessageId::kDiskError, path});
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return Failure::UnrecognizedFormat(path);
    case SQLITE_INTERRUPT:
      return Failure::Unspecified({MessageId::kTooSlow, path});
    case SQLITE_NOMEM:
      return {core::failure_number::kOutOfMemory, core::MessageId::kOutOfMemory};
    case SQLITE_MISMATCH:
      return Failure::TypeMismatch();
    case SQLITE_CONSTRAINT:
      return FromConstraint(exception.getExtendedErrorCode(), message);
    case SQLITE_ERROR:
      return FromStatementError(message, path);
    default:
      return Failure::Unspecified({MessageId::kEngineReport, path, message});
  }
}

}  // namespace tonalith::data
