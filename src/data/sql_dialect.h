// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Turns SELECT statements of the product's SQL dialect into the engine's. It knows DISTINCTROW (a join of whole tables
// never yields one pair of rows twice, so it asks for nothing), names in brackets, texts in either kind of quotes,
// True and False, "&" between texts, one trailing semicolon, and a column of a stored query written with the name of
// the table below it. What it does not know it passes on or refuses; it never guesses. Also how names, texts and new
// rows are written for the engine. Pure functions; failures are syntax failures in words.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::data {

struct SelectStatement {
  /// The whole statement, without a semicolon.
  std::string sql;

  /// The parts of a statement that takes plain columns of one table or stored query, row by row: it can be walked by
  /// key, because a further condition, an order by key and a limit may be added.
  struct Parts {
    std::string columns;
    std::string source;     // a name, not quoted
    std::string condition;  // empty for none
  };
  std::optional<Parts> parts;
};

/// `source` is a SELECT or the bare name of a table or stored query.
SelectStatement TranslateSelect(std::string_view source);

/// A condition over the fields of one record set. What comes out can stand in parentheses.
std::string TranslateCondition(std::string_view condition);

/// The statement that adds `rows` rows to a table, with a parameter for each of `fields` in each row; a row of defaults
/// where there are none. Names come quoted.
std::string InsertStatement(const std::string& table, const std::vector<std::string>& fields, std::size_t rows = 1);

/// A name or a text as the engine reads it, whatever characters are in it.
std::string QuoteName(std::string_view name);
std::string QuoteText(std::string_view text);

}  // namespace tonalith::data
