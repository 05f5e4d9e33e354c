// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The only error type of the program: a number and a message that a musician can read. Code throws a Failure; the code
// that reports it chooses the form (text alone, or number and text).

#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

#include "core/message.h"

namespace tonalith::core {

/// The failure numbers of the program itself. data/data_failure.h adds those of the database.
namespace failure_number {
inline constexpr std::int32_t kInvalidProcedureCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kInternalError = 51;
inline constexpr std::int32_t kInvalidUseOfNull = 94;
inline constexpr std::int32_t kUnspecified = -2147467259;
}  // namespace failure_number

class Failure : public std::exception {
 public:
  Failure(std::int32_t number, Message text) : number_(number), text_(std::move(text)), description_(text_.English()) {}

  [[nodiscard]] std::int32_t Number() const { return number_; }
  [[nodiscard]] const Message& Text() const { return text_; }
  /// The text in English.
  [[nodiscard]] const std::string& Description() const { return description_; }
  /// Number, ": " and text, as most handlers of the main window report it.
  [[nodiscard]] Message NumberAndText() const;
  /// NumberAndText in English.
  [[nodiscard]] std::string NumberAndDescription() const;
  [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

  static Failure Overflow();
  static Failure SubscriptOutOfRange();
  static Failure TypeMismatch();
  static Failure InvalidUseOfNull();
  static Failure FileNotFound(const std::string& path);
  static Failure UnrecognizedFormat(const std::string& path);
  /// A failure without a number of its own.
  static Failure Unspecified(Message text);

  /// The current exception as a Failure: itself, out of memory (7), or an internal error (51) with the text of the
  /// exception. Call it only in a catch block.
  static Failure FromCurrentException();

 private:
  std::int32_t number_;
  Message text_;
  std::string description_;
};

}  // namespace tonalith::core
