// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Translates SELECT statements of Tonalith's SQL dialect into SQL of the engine: DISTINCTROW (ignored, because a join
// of whole tables gives no pair of rows twice), names in brackets, texts in either kind of quotes, True and False, "&"
// between texts, a trailing semicolon, and columns of a stored query qualified with the table they come from. Other
// syntax is passed on or refused. Also quotes names and texts. Pure functions; they throw SyntaxError failures.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::data {

struct SelectStatement {
  /// The whole statement, without a semicolon.
  std::string sql;

  /// The parts of a statement that selects plain columns of one table or stored query. Its rows can be read by key,
  /// because a condition, an order by key and a limit can be added.
  struct Parts {
    std::string columns;
    std::string source;     // a name, not quoted
    std::string condition;  // empty for none
  };
  std::optional<Parts> parts;
};

/// `source` is a SELECT or the bare name of a table or stored query.
SelectStatement TranslateSelect(std::string_view source);

/// Translates a condition over the fields of one record set. The result can be put in parentheses.
std::string TranslateCondition(std::string_view condition);

/// An INSERT of `rows` rows, with a parameter for each of `fields` in each row, or of one row of defaults without
/// fields. The names are already quoted.
std::string InsertStatement(const std::string& table, const std::vector<std::string>& fields, std::size_t rows = 1);

/// Quotes a name or a text with any characters for the engine.
std::string QuoteName(std::string_view name);
std::string QuoteText(std::string_view text);

}  // namespace tonalith::data
