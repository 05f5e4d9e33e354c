// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/data_failure.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <string_view>

namespace tonalith::data {

using core::Failure;
namespace number = failure_number;

Failure NoCurrentRecord() {
  return {number::kNoCurrentRecord,
          "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
          "record."};
}
Failure NotAllowedHere() { return {number::kNotAllowedHere, "Operation is not allowed in this context."}; }
Failure UpdatingNotSupported() { return {number::kNotSupported, "These records can only be read, not changed."}; }
Failure OperationNotSupported() {
  return {number::kNotSupported, "The operation is not possible with this kind of record set."};
}
Failure UnknownItem() {
  return {number::kUnknownItem,
          "Item cannot be found in the collection corresponding to the requested name or ordinal."};
}
Failure ObjectClosed() { return {number::kClosed, "Operation is not allowed when the object is closed."}; }
Failure ObjectAlreadyOpen() { return {number::kAlreadyOpen, "Operation is not allowed when the object is open."}; }
Failure UnknownProvider() {
  return {number::kUnknownProvider, "Provider cannot be found. It may not be properly installed."};
}
Failure InvalidConnection() {
  return {number::kInvalidConnection, "There is no open connection to the database for this operation."};
}
Failure InvalidBookmark() {
  return {number::kInvalidBookmark, "The bookmark is invalid: its record is no longer among these records."};
}
Failure RowVanished() {
  return {number::kRowVanished, "The record cannot be found any more. It may have been deleted since it was read."};
}
Failure RowChanged() {
  return {number::kRowChanged, "The record was not saved, because it has been changed elsewhere since it was read."};
}
Failure Cancelled() { return {number::kCancelled, "The operation was cancelled."}; }
Failure NumbersUsedUp(const std::string& path) {
  return Failure::Unspecified("No new record can be saved in '" + path +
                              "', because the highest possible record number is in use.");
}
Failure ViewAsTable(const std::string& path, const std::string& table) {
  return Failure::Unspecified("In the database '" + path + "', '" + table + "' is a stored query instead of a table.");
}
Failure NoTransaction() { return {number::kNoTransaction, "No transaction is active."}; }
Failure TransactionActive() {
  return {number::kTransactionActive, "Only one transaction can be active on a connection."};
}
Failure SyntaxError(const std::string& description) { return {number::kSyntax, description}; }

namespace {

Failure FromStatementError(const std::string& message, const std::string& path) {
  static constexpr std::string_view kNoTable = "no such table: ";
  static constexpr std::string_view kNoField = "no such column: ";
  static constexpr std::string_view kCannotModify = "cannot modify ";
  static constexpr std::string_view kForeignView = "access to view \"";
  const std::string_view text = message;
  if (text.starts_with(kNoTable)) {
    return {number::kUnknownTable, "The database '" + path + "' has no table or stored query '" +
                                       std::string(text.substr(kNoTable.size())) + "'."};
  }
  if (text.starts_with(kNoField)) {
    return {number::kUnknownField, "There is no field '" + std::string(text.substr(kNoField.size())) + "'."};
  }
  if (text.starts_with(kCannotModify)) return UpdatingNotSupported();
  if (text.starts_with(kForeignView)) {
    const std::string_view rest = text.substr(kForeignView.size());
    return ViewAsTable(path, std::string(rest.substr(0, rest.find('"'))));
  }
  return SyntaxError("Syntax error in the statement: " + message + ".");
}

Failure FromConstraint(int extendedCode, const std::string& message) {
  switch (extendedCode) {
    case SQLITE_CONSTRAINT_TRIGGER:
      return Failure::Unspecified(message);
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
    case SQLITE_CONSTRAINT_UNIQUE:
      return Failure::Unspecified("The record was not saved, because another record has the same key.");
    default:
      return Failure::Unspecified("The record was not saved: " + message + ".");
  }
}

}  // namespace

Failure FromEngine(const SQLite::Exception& exception, const std::string& path) {
  const std::string message = exception.what();
  const int code = exception.getErrorCode() & 0xFF;
  switch (code) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return Failure::Unspecified("Could not use '" + path + "'; file already in use.");
    case SQLITE_READONLY:
      return Failure::Unspecified("Cannot update. The database '" + path + "' or its folder is read-only.");
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return Failure::Unspecified("The file '" + path + "' or its folder does not allow this access.");
    case SQLITE_FULL:
      return Failure::Unspecified("The disk that holds '" + path + "' is full. Nothing was saved.");
    case SQLITE_IOERR:
      return Failure::Unspecified("The file '" + path +
                                  "' could not be read or written, because the disk reports an error.");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return Failure::UnrecognizedFormat(path);
    case SQLITE_INTERRUPT:
      return Failure::Unspecified("The database '" + path +
                                  "' takes too long to answer. It may be damaged or made to do harm.");
    case SQLITE_NOMEM:
      return {core::failure_number::kOutOfMemory, "Out of memory"};
    case SQLITE_MISMATCH:
      return Failure::TypeMismatch();
    case SQLITE_CONSTRAINT:
      return FromConstraint(exception.getExtendedErrorCode(), message);
    case SQLITE_ERROR:
      return FromStatementError(message, path);
    default:
      return Failure::Unspecified("The database '" + path + "' reports: " + message + ".");
  }
}

}  // namespace tonalith::data
