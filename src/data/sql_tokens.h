// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The words of a statement in the product's SQL dialect. Texts stand between single or double quotes, names may stand
// in brackets, a doubled quote is one quote, and there are no comments: "--" is two minus signs. Pure functions; a
// statement that cannot be cut into tokens throws a syntax failure.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"

namespace tonalith::data {

enum class SqlTokenKind { kWord, kBracketedName, kText, kNumber, kSymbol };

struct SqlToken {
  SqlTokenKind kind;
  /// Without quotes and brackets, doubled quotes made single.
  std::string text;
  bool operator==(const SqlToken&) const = default;
};

std::vector<SqlToken> TokenizeSql(std::string_view statement);

/// Whether two names are equal without regard to ASCII case, as names and keywords compare.
inline bool SameName(std::string_view a, std::string_view b) { return core::EqualWithoutCase(a, b); }

}  // namespace tonalith::data
