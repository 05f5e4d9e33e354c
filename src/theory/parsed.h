// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The result of reading typed text: a value, or what is wrong and where. The catalogue of reasons of this room.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tonalith::theory {

enum class ParseReason : std::uint8_t {
  kEmpty,
  kTooLong,
  kTooMany,
  kUnknownNote,
  kTooManyAccidentals,
  kOctaveOutOfRange,
  kUnknownDegree,
  kDegreeTwice,
  kUnknownChord,
  kUnknownBass,
  kNothingToOmit,
  kTextAfterNote,
};

/// One English sentence without its full stop.
[[nodiscard]] std::string_view Text(ParseReason reason);

struct ParseError {
  ParseReason reason = ParseReason::kEmpty;
  /// The byte of the text (UTF-8) at which reading stopped, from 0; at most the length of the text.
  std::size_t byte = 0;

  bool operator==(const ParseError&) const = default;
};

/// The character that an error points at, counted from 1, for a message about `text`.
[[nodiscard]] std::size_t CharacterNumber(std::string_view text, std::size_t byte);

/// "Character 3: no note has this name", for a message about `text`.
[[nodiscard]] std::string Describe(const ParseError& error, std::string_view text);

template <typename Value>
class Parsed {
 public:
  Parsed(Value value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Parsed(ParseError error) : error_(error) {}        // NOLINT(google-explicit-constructor)
  Parsed(ParseReason reason, std::size_t byte) : error_{reason, byte} {}

  explicit operator bool() const { return value_.has_value(); }
  /// Only for a result that has a value.
  const Value& operator*() const { return *value_; }
  const Value* operator->() const { return &*value_; }
  /// Only for a result without a value.
  [[nodiscard]] const ParseError& Error() const { return error_; }
  [[nodiscard]] const std::optional<Value>& AsOptional() const { return value_; }

 private:
  std::optional<Value> value_;
  ParseError error_;
};

}  // namespace tonalith::theory
