// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The tokenizer of Tonalith's SQL dialect. Texts are in single or double quotes, names may be in brackets, a doubled
// quote is one quote, and there are no comments: "--" is two minus signs. Pure functions; malformed input throws a
// SyntaxError failure.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"

namespace tonalith::data {

enum class SqlTokenKind { kWord, kBracketedName, kText, kNumber, kSymbol };

struct SqlToken {
  SqlTokenKind kind;
  /// Without quotes and brackets; doubled quotes are single.
  std::string text;
  bool operator==(const SqlToken&) const = default;
};

std::vector<SqlToken> TokenizeSql(std::string_view statement);

/// Whether two names or keywords are equal; ignores ASCII case.
inline bool SameName(std::string_view a, std::string_view b) { return core::EqualWithoutCase(a, b); }

}  // namespace tonalith::data
