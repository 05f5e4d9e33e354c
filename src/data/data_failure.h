// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The failures of this room: their numbers, a factory function for each, and the translation of the errors of the
// database engine into descriptions with the file name. The functions return the Failure; the caller throws it. Any
// thread.

#pragma once

#include <cstdint>
#include <string>

#include "core/failure.h"

namespace SQLite {  // NOLINT(readability-identifier-naming): the library's name
class Exception;
}

namespace tonalith::data {

namespace failure_number {
inline constexpr std::int32_t kNoCurrentRecord = 3021;
inline constexpr std::int32_t kNotAllowedHere = 3219;
inline constexpr std::int32_t kNotSupported = 3251;
inline constexpr std::int32_t kUnknownItem = 3265;
inline constexpr std::int32_t kClosed = 3704;
inline constexpr std::int32_t kAlreadyOpen = 3705;
inline constexpr std::int32_t kUnknownProvider = 3706;
inline constexpr std::int32_t kInvalidConnection = 3709;
inline constexpr std::int32_t kCancelled = 3712;
inline constexpr std::int32_t kInvalidBookmark = -2147217906;
inline constexpr std::int32_t kUnknownField = -2147217904;
inline constexpr std::int32_t kSyntax = -2147217900;
inline constexpr std::int32_t kUnknownTable = -2147217865;
inline constexpr std::int32_t kRowVanished = -2147217864;
inline constexpr std::int32_t kRowChanged = -2147217863;
inline constexpr std::int32_t kNotAuthorised = -2147217843;
inline constexpr std::int32_t kNoTransaction = -2147168242;
inline constexpr std::int32_t kTransactionActive = -2147168237;
}  // namespace failure_number

/// A field or a row is longer than the engine was allowed to read.
class FieldTooLong : public core::Failure {
 public:
  using Failure::Failure;
};

core::Failure NoCurrentRecord();
core::Failure NotAllowedHere();
/// The record set is read-only: its lock type, or rows without a key.
core::Failure UpdatingNotSupported();
/// The record set does not support this move or bookmarks.
core::Failure OperationNotSupported();
core::Failure UnknownItem();
core::Failure ObjectClosed();
core::Failure ObjectAlreadyOpen();
core::Failure UnknownProvider();
core::Failure InvalidConnection();
core::Failure InvalidBookmark();
core::Failure RowVanished();
/// Another connection has changed the row since it was read.
core::Failure RowChanged();
/// The user has cancelled the operation; it is not reported.
core::Failure Cancelled();
/// The engine has no row number left for a new row.
core::Failure NumbersUsedUp(const std::string& path);
core::Failure ViewAsTable(const std::string& path, const std::string& table);
core::Failure NoTransaction();
core::Failure TransactionActive();
core::Failure SyntaxError(core::Message text);

/// The error of the engine for the file at `path`. An error raised by a trigger of the stored query keeps its text.
core::Failure FromEngine(const SQLite::Exception& exception, const std::string& path);

}  // namespace tonalith::data
