// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One field's content as it stands in the database: nothing (null), a whole number, a fractional number, a text (UTF-8)
// or bytes. A yes/no field is a whole number: no is 0, yes is written as 1, and any other number reads as yes. A plain
// value; the As functions convert the way a field is read and throw failure 94 for null and 13 for what does not fit.

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
  Value(bool) = delete;                                           // YesNo says which number yes is

  static Value Null() { return {}; }
  static Value YesNo(bool yes) { return {std::int64_t{yes ? 1 : 0}}; }

  /// As an assignment, in the memory of the text that was there.
  void SetText(std::string_view text);

  [[nodiscard]] bool IsNull() const { return std::holds_alternative<std::monostate>(content_); }

  /// Text as it stands, numbers in decimal (a fraction with a point). Throws 94 for null, 13 for bytes.
  [[nodiscard]] std::string AsText() const;
  /// As AsText, but `otherwise` for null.
  [[nodiscard]] std::string TextOr(std::string otherwise) const;
  /// Whole numbers, fractions without a rest, and text that is a whole number. Throws 94 for null, 13 for the rest.
  [[nodiscard]] std::int64_t AsInt() const;
  /// As AsInt, in 32 bits. Throws 6 outside their range.
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
