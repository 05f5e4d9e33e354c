// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/sql_dialect.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "data/data_failure.h"
#include "data/messages.h"
#include "data/schema.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

using Tokens = std::span<const SqlToken>;

constexpr std::array<std::string_view, 8> kClauseWords = {"WHERE", "GROUP",  "HAVING",    "ORDER",
                                                          "UNION", "EXCEPT", "INTERSECT", "LIMIT"};
constexpr std::array<std::string_view, 7> kJoinWords = {"INNER", "LEFT", "RIGHT", "OUTER", "CROSS", "JOIN", "ON"};

bool IsWord(const SqlToken& token, std::string_view word) {
  return token.kind == SqlTokenKind::kWord && SameName(token.text, word);
}
bool IsSymbol(const SqlToken& token, std::string_view symbol) {
  return token.kind == SqlTokenKind::kSymbol && token.text == symbol;
}
bool IsName(const SqlToken& token) {
  return token.kind == SqlTokenKind::kWord || token.kind == SqlTokenKind::kBracketedName;
}
bool IsOneOf(const SqlToken& token, std::span<const std::string_view> words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return IsWord(token, word); });
}
bool IsAlias(const SqlToken& token) {
  return IsName(token) && !IsOneOf(token, kClauseWords) && !IsOneOf(token, kJoinWords) && !IsWord(token, "AS");
}

void RequireBalance(Tokens tokens) {
  int depth = 0;
  for (const SqlToken& token : tokens) {
    if (IsSymbol(token, "(")) ++depth;
    if (IsSymbol(token, ")")) --depth;
    if (depth < 0) break;
  }
  if (depth != 0) throw SyntaxError(MessageId::kParentheses);
}

void RequireNoSemicolon(Tokens tokens) {
  if (std::any_of(tokens.begin(), tokens.end(), [](const SqlToken& token) { return IsSymbol(token, ";"); })) {
    throw SyntaxError(MessageId::kAfterStatement);
  }
}

// The valid qualifiers of a column: the names in FROM and JOIN, and the aliases.
struct Sources {
  std::vector<std::string> names;
  bool hasStoredQuery = false;

  [[nodiscard]] bool Contains(std::string_view name) const {
    return std::any_of(names.begin(), names.end(), [&](const std::string& known) { return SameName(known, name); });
  }
};

Sources SourcesOf(Tokens tokens) {
  Sources sources;
  bool inFrom = false;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const bool introduces =
        IsWord(tokens[i], "FROM") || (inFrom && (IsWord(tokens[i], "JOIN") || IsSymbol(tokens[i], ",")));
    if (IsOneOf(tokens[i], kClauseWords)) inFrom = false;
    if (!introduces) continue;
    inFrom = true;
    std::size_t at = i + 1;
    while (at < tokens.size() && IsSymbol(tokens[at], "(")) ++at;
    if (at >= tokens.size() || !IsName(tokens[at])) continue;
    sources.names.push_back(tokens[at].text);
    if (StoredQueryKey(tokens[at].text) != nullptr) sources.hasStoredQuery = true;
    if (++at < tokens.size() && IsWord(tokens[at], "AS")) ++at;
    if (at < tokens.size() && IsAlias(tokens[at])) sources.names.push_back(tokens[at].text);
  }
  return sources;
}

// The columns of a stored query may be qualified with the table that they come from. The engine knows only their own
// names, so a qualifier that is not in FROM is dropped; without a stored query it stays and is refused.
// Kept: see docs/behaviour.md, The by-ID statement has no blank.
bool IsForeignQualifier(Tokens tokens, std::size_t i, const Sources& sources) {
  return sources.hasStoredQuery && i + 2 < tokens.size() && IsName(tokens[i]) && IsSymbol(tokens[i + 1], ".") &&
         (i == 0 || !IsSymbol(tokens[i - 1], ".")) && !sources.Contains(tokens[i].text);
}

std::string WordOf(Tokens tokens, std::size_t i) {
  const bool qualified =
      (i > 0 && IsSymbol(tokens[i - 1], ".")) || (i + 1 < tokens.size() && IsSymbol(tokens[i + 1], "."));
  if (qualified) return QuoteName(tokens[i].text);
  if (IsWord(tokens[i], "True")) return "1";
  if (IsWord(tokens[i], "False")) return "0";
  return tokens[i].text;
}

std::string Emit(Tokens tokens, const Sources& sources) {
  std::string sql;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (IsForeignQualifier(tokens, i, sources)) {
      ++i;
      continue;
    }
    // Kept: see docs/behaviour.md, DISTINCTROW is ignored.
    if (i > 0 && IsWord(tokens[i], "DISTINCTROW") && IsWord(tokens[i - 1], "SELECT")) continue;
    // A blank between tokens prevents that two minus signs become a comment.
    if (!sql.empty()) sql += ' ';
    switch (tokens[i].kind) {
      case SqlTokenKind::kWord:
        sql += WordOf(tokens, i);
        break;
      case SqlTokenKind::kBracketedName:
        sql += QuoteName(tokens[i].text);
        break;
      case SqlTokenKind::kText:
        sql += QuoteText(tokens[i].text);
        break;
      case SqlTokenKind::kNumber:
        sql += tokens[i].text;
        break;
      case SqlTokenKind::kSymbol:
        sql += IsSymbol(tokens[i], "&") ? std::string("||") : tokens[i].text;
        break;
    }
  }
  return sql;
}

bool HasOnlyColumns(Tokens list) {
  bool expectsColumn = true;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (IsSymbol(list[i], ",")) {
      if (expectsColumn) return false;
      expectsColumn = true;
    } else if (expectsColumn && i + 1 < list.size() && IsName(list[i]) && IsSymbol(list[i + 1], ".")) {
      ++i;
    } else if (expectsColumn && (IsName(list[i]) || IsSymbol(list[i], "*"))) {
      expectsColumn = false;
    } else {
      return false;
    }
  }
  return !expectsColumn;
}

bool HasClauseAtTop(Tokens tokens) {
  int depth = 0;
  return std::any_of(tokens.begin(), tokens.end(), [&](const SqlToken& token) {
    if (IsSymbol(token, "(")) ++depth;
    if (IsSymbol(token, ")")) --depth;
    return depth == 0 && IsOneOf(token, kClauseWords);
  });
}

std::optional<SelectStatement::Parts> PartsOf(Tokens tokens, const Sources& sources) {
  std::size_t begin = 1;
  if (begin < tokens.size() && (IsWord(tokens[begin], "DISTINCTROW") || IsWord(tokens[begin], "ALL"))) ++begin;
  const auto from =
      std::find_if(tokens.begin(), tokens.end(), [](const SqlToken& token) { return IsWord(token, "FROM"); });
  const std::size_t at = static_cast<std::size_t>(from - tokens.begin());
  if (at + 1 >= tokens.size() || !IsName(tokens[at + 1])) return {};
  const Tokens list = tokens.subspan(begin, at - begin);
  if (!HasOnlyColumns(list)) return {};
  SelectStatement::Parts parts{Emit(list, sources), tokens[at + 1].text, {}};
  const Tokens tail = tokens.subspan(at + 2);
  if (tail.empty()) return parts;
  if (!IsWord(tail.front(), "WHERE") || tail.size() == 1 || HasClauseAtTop(tail.subspan(1))) return {};
  parts.condition = Emit(tail.subspan(1), sources);
  return parts;
}

}  // namespace

SelectStatement TranslateSelect(std::string_view source) {
  const std::vector<SqlToken> all = TokenizeSql(source);
  Tokens tokens(all);
  while (!tokens.empty() && IsSymbol(tokens.back(), ";")) tokens = tokens.first(tokens.size() - 1);
  RequireNoSemicolon(tokens);
  if (tokens.size() == 1 && IsName(tokens.front())) {
    return {"SELECT * FROM " + QuoteName(tokens.front().text), SelectStatement::Parts{"*", tokens.front().text, {}}};
  }
  if (tokens.empty() || !IsWord(tokens.front(), "SELECT")) {
    throw SyntaxError(MessageId::kNoSelect);
  }
  RequireBalance(tokens);
  const Sources sources = SourcesOf(tokens);
  return {Emit(tokens, sources), PartsOf(tokens, sources)};
}

std::string TranslateCondition(std::string_view condition) {
  const std::vector<SqlToken> tokens = TokenizeSql(condition);
  if (tokens.empty()) throw SyntaxError(MessageId::kEmptyCondition);
  RequireNoSemicolon(tokens);
  RequireBalance(tokens);
  // A record set has one set of fields, so qualifiers are dropped.
  return Emit(tokens, {{}, true});
}

std::string InsertStatement(const std::string& table, const std::vector<std::string>& fields, std::size_t rows) {
  if (fields.empty()) return "INSERT INTO " + table + " DEFAULT VALUES";
  std::string names;
  std::string parameters;
  for (const std::string& field : fields) {
    names += (names.empty() ? "" : ", ") + field;
    parameters += parameters.empty() ? "?" : ", ?";
  }
  std::string statement = "INSERT INTO " + table + " (" + names + ") VALUES (" + parameters + ")";
  for (std::size_t row = 1; row < rows; ++row) statement += ", (" + parameters + ")";
  return statement;
}

std::string QuoteName(std::string_view name) {
  // Brackets, because the engine treats an unknown name in double quotes as a text.
  std::string quoted;
  if (name.find(']') == std::string_view::npos) return quoted.append("[").append(name).append("]");
  quoted = "`";
  for (const char c : name) quoted.append(c == '`' ? 2 : 1, c);
  return quoted + "`";
}

std::string QuoteText(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
  return quoted + "'";
}

}  // namespace tonalith::data
