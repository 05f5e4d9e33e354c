// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "core/failure.h"

namespace tonalith::core {
namespace {

using core::Failure;

template <class Number>
Number Parse(const std::string& text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc{} || result.ptr != end) throw Failure::TypeMismatch();
  return number;
}

template <class Number>
std::string Write(Number number) {
  std::array<char, 64> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), result.ptr};
}

// 2^63, the first number outside the range of std::int64_t.
constexpr double kWholeLimit = 9223372036854775808.0;

}  // namespace

void Value::SetText(std::string_view text) {
  if (auto* const current = std::get_if<std::string>(&content_)) {
    current->assign(text);
  } else {
    content_.emplace<std::string>(text);
  }
}

std::string Value::AsText() const {
  if (IsNull()) throw Failure::InvalidUseOfNull();
  if (const auto* text = std::get_if<std::string>(&content_)) return *text;
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return Write(*whole);
  if (const auto* fraction = std::get_if<double>(&content_)) return Write(*fraction);
  throw Failure::TypeMismatch();
}

std::string Value::TextOr(std::string otherwise) const { return IsNull() ? std::move(otherwise) : AsText(); }

std::int64_t Value::AsInt() const {
  if (IsNull()) throw Failure::InvalidUseOfNull();
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return *whole;
  if (const auto* text = std::get_if<std::string>(&content_)) return Parse<std::int64_t>(*text);
  if (const auto* fraction = std::get_if<double>(&content_)) {
    if (std::trunc(*fraction) == *fraction && *fraction >= -kWholeLimit && *fraction < kWholeLimit) {
      return static_cast<std::int64_t>(*fraction);
    }
  }
  throw Failure::TypeMismatch();
}

std::int32_t Value::AsInt32() const {
  const std::int64_t whole = AsInt();
  if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max()) {
    throw Failure::Overflow();
  }
  return static_cast<std::int32_t>(whole);
}

double Value::AsDouble() const {
  if (IsNull()) throw Failure::InvalidUseOfNull();
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return static_cast<double>(*whole);
  if (const auto* fraction = std::get_if<double>(&content_)) return *fraction;
  if (const auto* text = std::get_if<std::string>(&content_)) return Parse<double>(*text);
  throw Failure::TypeMismatch();
}

bool Value::AsYesNo() const { return !IsNull() && AsDouble() != 0; }

}  // namespace tonalith::core
