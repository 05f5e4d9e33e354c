// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The content of one field: null, an integer, a fraction, a text (UTF-8) or bytes. A yes/no field is an integer: no is
// 0, yes is written as 1 and read from any number but 0. The As functions convert as a field is read and throw failure
// 94 for null and 13 for a value that does not convert.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tonalith::core {

using Bytes = std::vector<std::uint8_t>;

class Value {
 public:
  Value() = default;
  Value(std::int64_t number) : content_(number) {}                // NOLINT(google-explicit-constructor)
  Value(std::int32_t number) : content_(std::int64_t{number}) {}  // NOLINT(google-explicit-constructor)
  Value(double number) : content_(number) {}                      // NOLINT(google-explicit-constructor)
  Value(std::string text) : content_(std::move(text)) {}          // NOLINT(google-explicit-constructor)
  Value(std::string_view text) : content_(std::string(text)) {}   // NOLINT(google-explicit-constructor)
  Value(const char* text) : content_(std::string(text)) {}        // NOLINT(google-explicit-constructor)
  Value(Bytes bytes) : content_(std::move(bytes)) {}              // NOLINT(google-explicit-constructor)
  Value(bool) = delete;                                           // use YesNo

  static Value Null() { return {}; }
  static Value YesNo(bool yes) { return {std::int64_t{yes ? 1 : 0}}; }

  /// Assigns `text`; reuses the memory of a previous text.
  void SetText(std::string_view text);

  [[nodiscard]] bool IsNull() const { return std::holds_alternative<std::monostate>(content_); }

  /// Text unchanged, numbers in decimal (a fraction with a point). Throws 94 for null, 13 for bytes.
  [[nodiscard]] std::string AsText() const;
  /// As AsText, but `otherwise` for null.
  [[nodiscard]] std::string TextOr(std::string otherwise) const;
  /// Integers, fractions without a fractional part, and text that is an integer. Throws 94 for null, 13 otherwise.
  [[nodiscard]] std::int64_t AsInt() const;
  /// As AsInt, in 32 bits. Throws 6 outside the range.
  [[nodiscard]] std::int32_t AsInt32() const;
  /// Numbers and text that is a number. Throws as AsInt.
  [[nodiscard]] double AsDouble() const;
  /// Null is no; a number is yes unless it is 0. Throws 13 for anything that is no number.
  [[nodiscard]] bool AsYesNo() const;

  /// Same kind and same content; 1 and 1.0 and "1" are three different values.
  bool operator==(const Value&) const = default;

  using Content = std::variant<std::monostate, std::int64_t, double, std::string, Bytes>;
  [[nodiscard]] const Content& Raw() const { return content_; }

 private:
  Content content_;
};

}  // namespace tonalith::core
