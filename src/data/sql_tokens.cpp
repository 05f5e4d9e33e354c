// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/sql_tokens.h"

#include "data/data_failure.h"
#include "data/messages.h"

namespace tonalith::data {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsWordStart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool IsWordPart(char c) { return IsWordStart(c) || IsDigit(c); }
bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view statement) : rest_(statement) {}

  std::vector<SqlToken> Run() {
    if (rest_.find('\0') != std::string_view::npos) {
      throw SyntaxError(MessageId::kCodeZero);
    }
    while (!rest_.empty()) {
      const char c = rest_.front();
      if (IsSpace(c)) {
        rest_.remove_prefix(1);
      } else if (c == '\'' || c == '"') {
        TakeText(c);
      } else if (c == '[') {
        TakeBracketedName();
      } else if (IsWordStart(c)) {
        Take(SqlTokenKind::kWord, LengthOf(IsWordPart));
      } else if (IsDigit(c) || (c == '.' && rest_.size() > 1 && IsDigit(rest_[1]) && !FollowsName())) {
        TakeNumber();
      } else {
        TakeSymbol();
      }
    }
    return std::move(tokens_);
  }

 private:
  template <class Test>
  [[nodiscard]] std::size_t LengthOf(Test test, std::size_t from = 0) const {
    std::size_t length = from;
    while (length < rest_.size() && test(rest_[length])) ++length;
    return length;
  }

  [[nodiscard]] bool FollowsName() const {
    return !tokens_.empty() &&
           (tokens_.back().kind == SqlTokenKind::kWord || tokens_.back().kind == SqlTokenKind::kBracketedName);
  }

  void Take(SqlTokenKind kind, std::size_t length) {
    tokens_.push_back({kind, std::string(rest_.substr(0, length))});
    rest_.remove_prefix(length);
  }

  void TakeText(char quote) {
    std::string text;
    std::size_t i = 1;
    for (;; ++i) {
      if (i >= rest_.size()) throw SyntaxError(MessageId::kOpenText);
      if (rest_[i] == quote) {
        if (i + 1 >= rest_.size() || rest_[i + 1] != quote) break;
        ++i;
      }
      text += rest_[i];
    }
    tokens_.push_back({SqlTokenKind::kText, std::move(text)});
    rest_.remove_prefix(i + 1);
  }

  void TakeBracketedName() {
    const std::size_t end = rest_.find(']');
    if (end == std::string_view::npos) throw SyntaxError(MessageId::kOpenName);
    if (end == 1) throw SyntaxError(MessageId::kEmptyName);
    tokens_.push_back({SqlTokenKind::kBracketedName, std::string(rest_.substr(1, end - 1))});
    rest_.remove_prefix(end + 1);
  }

  void TakeNumber() {
    std::size_t length = LengthOf(IsDigit);
    if (length < rest_.size() && rest_[length] == '.') length = LengthOf(IsDigit, length + 1);
    if (length < rest_.size() && (rest_[length] == 'e' || rest_[length] == 'E')) {
      std::size_t digits = length + 1;
      if (digits < rest_.size() && (rest_[digits] == '+' || rest_[digits] == '-')) ++digits;
      const std::size_t end = LengthOf(IsDigit, digits);
      if (end > digits) length = end;
    }
    if (length < rest_.size() && IsWordPart(rest_[length])) throw SyntaxError(MessageId::kNumberInName);
    Take(SqlTokenKind::kNumber, length);
  }

  void TakeSymbol() {
    static constexpr std::string_view kSingle = "().,;=<>+-*/&";
    const std::string_view two = rest_.substr(0, 2);
    if (two == "<>" || two == "<=" || two == ">=") {
      Take(SqlTokenKind::kSymbol, 2);
    } else if (rest_.front() == '#') {
      throw SyntaxError(MessageId::kDates);
    } else if (kSingle.find(rest_.front()) != std::string_view::npos) {
      Take(SqlTokenKind::kSymbol, 1);
    } else {
      throw SyntaxError({MessageId::kCharacter, std::string(1, rest_.front())});
    }
  }

  std::string_view rest_;
  std::vector<SqlToken> tokens_;
};

}  // namespace

std::vector<SqlToken> TokenizeSql(std::string_view statement) { return Tokenizer(statement).Run(); }

}  // namespace tonalith::data
