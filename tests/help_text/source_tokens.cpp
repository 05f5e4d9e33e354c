// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_text/source_tokens.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <utility>

namespace tonalith::help_text {
namespace {

using Kind = SourceToken::Kind;

bool IsWordPart(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || (c & 0x80) != 0; }
bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

void AppendUtf8(std::string& text, unsigned long character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
    return;
  }
  constexpr std::array<unsigned long, 2> kLimits = {0x800, 0x10000};
  const int more = character < kLimits[0] ? 1 : character < kLimits[1] ? 2 : 3;
  constexpr std::array<unsigned char, 4> kLeads = {0, 0xC0, 0xE0, 0xF0};
  text += static_cast<char>(kLeads.at(static_cast<std::size_t>(more)) | character >> (6 * more));
  for (int i = more - 1; i >= 0; --i) text += static_cast<char>(0x80 | (character >> (6 * i) & 0x3F));
}

class Lexer {
 public:
  explicit Lexer(std::string_view source) : rest_(source) {}

  std::vector<SourceToken> Run() {
    while (!rest_.empty()) Take();
    return std::move(tokens_);
  }

 private:
  void Take() {
    const char c = rest_.front();
    if (IsSpace(c)) {
      isLineStart_ = isLineStart_ || c == '\n';
      rest_.remove_prefix(1);
      return;
    }
    const bool wasLineStart = std::exchange(isLineStart_, false);
    if (c == '#' && wasLineStart) return SkipDirective();
    if (rest_.starts_with("//")) return Skip(rest_.find('\n'));
    if (rest_.starts_with("/*")) return Skip(EndAfter("*/", 2));
    if (c == '"') return TakeLiteral();
    if (c == '\'') return Skip(EndOfQuoted('\''));
    if (IsWordPart(c)) return TakeWord();
    tokens_.push_back({Kind::kPunctuation, std::string(1, c)});
    rest_.remove_prefix(1);
  }

  void Skip(std::size_t length) { rest_.remove_prefix(std::min(length, rest_.size())); }

  [[nodiscard]] std::size_t EndAfter(std::string_view end, std::size_t from) const {
    const std::size_t at = rest_.find(end, from);
    return at == std::string_view::npos ? rest_.size() : at + end.size();
  }

  /// The position after the closing quote of the literal at the start.
  [[nodiscard]] std::size_t EndOfQuoted(char quote) const {
    std::size_t at = 1;
    while (at < rest_.size() && rest_[at] != quote) at += rest_[at] == '\\' ? 2 : 1;
    return at + 1;
  }

  void SkipDirective() {
    std::size_t end = rest_.find('\n');
    while (end != std::string_view::npos && rest_[end - 1] == '\\') end = rest_.find('\n', end + 1);
    Skip(end);
  }

  void TakeWord() {
    // A digit separator (1'000) belongs to its number.
    const bool isNumber = std::isdigit(static_cast<unsigned char>(rest_.front())) != 0;
    std::size_t end = 0;
    while (end < rest_.size() && (IsWordPart(rest_[end]) || (isNumber && rest_[end] == '\''))) ++end;
    const std::string word(rest_.substr(0, end));
    rest_.remove_prefix(end);
    const bool isLiteral = !rest_.empty() && rest_.front() == '"';
    if (isLiteral && (word == "R" || word == "u8R" || word == "uR" || word == "LR")) return TakeRawLiteral();
    if (isLiteral && (word == "u8" || word == "u" || word == "U" || word == "L")) return;
    if (!tokens_.empty() && tokens_.back().kind == Kind::kLiteral && word == "sv") return;
    tokens_.push_back({Kind::kWord, word});
  }

  void TakeRawLiteral() {
    const std::size_t open = std::min(rest_.find('('), rest_.size() - 1);
    const std::string close = ")" + std::string(rest_.substr(1, open - 1)) + "\"";
    const std::size_t end = EndAfter(close, open);
    const std::size_t length = end - open - 1;
    Add(std::string(rest_.substr(open + 1, length < close.size() ? 0 : length - close.size())));
    Skip(end);
  }

  void TakeLiteral() {
    const std::size_t end = std::min(EndOfQuoted('"'), rest_.size());
    std::string text;
    std::string_view content = rest_.substr(1, end < 2 ? 0 : end - 2);
    while (!content.empty()) {
      if (content.front() == '\\' && content.size() > 1) {
        TakeEscape(content, text);
      } else {
        text += content.front();
        content.remove_prefix(1);
      }
    }
    Add(text);
    rest_.remove_prefix(end);
  }

  static void TakeEscape(std::string_view& content, std::string& text) {
    const char kind = content[1];
    content.remove_prefix(2);
    const std::optional<std::size_t> digits = kind == 'u'   ? std::optional<std::size_t>(4)
                                              : kind == 'U' ? std::optional<std::size_t>(8)
                                              : kind == 'x' ? std::optional<std::size_t>(2)
                                                            : std::nullopt;
    if (digits) {
      const unsigned long number = std::stoul("0" + std::string(content.substr(0, *digits)), nullptr, 16);
      if (kind == 'x') {
        text += static_cast<char>(number);
      } else {
        AppendUtf8(text, number);
      }
      content.remove_prefix(std::min(*digits, content.size()));
    } else {
      text += kind == 'n' ? '\n' : kind == 't' ? '\t' : kind == '0' ? ' ' : kind;
    }
  }

  void Add(const std::string& text) {
    if (!tokens_.empty() && tokens_.back().kind == Kind::kLiteral) {
      tokens_.back().text += text;
    } else {
      tokens_.push_back({Kind::kLiteral, text});
    }
  }

  std::string_view rest_;
  bool isLineStart_ = true;
  std::vector<SourceToken> tokens_;
};

bool HasTwoLetters(std::string_view text) {
  return std::count_if(text.begin(), text.end(),
                       [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }) >= 2;
}

}  // namespace

std::vector<SourceToken> TokensOf(std::string_view source) { return Lexer(source).Run(); }

std::string AsDisplayed(std::string_view text) {
  std::string read;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (IsSpace(c)) {
      if (!read.empty() && read.back() != ' ') read += ' ';
    } else if (c != '&' || (at + 1 < text.size() && text[at + 1] == ' ')) {
      read += c;
    }
  }
  if (read.ends_with(' ')) read.pop_back();
  return read;
}

std::vector<std::string> PiecesOf(std::string_view literal) {
  std::vector<std::string> pieces;
  std::string piece;
  const auto finish = [&] {
    const std::string read = AsDisplayed(piece);
    if (HasTwoLetters(read)) pieces.push_back(read);
    piece.clear();
  };
  for (std::size_t at = 0; at < literal.size(); ++at) {
    const bool isPlace =
        literal[at] == '%' && at + 1 < literal.size() && literal[at + 1] >= '1' && literal[at + 1] <= '9';
    if (isPlace || literal[at] == '\n') {
      finish();
      at += isPlace ? 1 : 0;
    } else {
      piece += literal[at];
    }
  }
  finish();
  return pieces;
}

std::set<std::string> TextsOf(const std::vector<SourceToken>& tokens) {
  std::set<std::string> texts;
  for (const SourceToken& token : tokens) {
    if (token.kind != Kind::kLiteral) continue;
    texts.insert(AsDisplayed(token.text));
    for (const std::string& piece : PiecesOf(token.text)) texts.insert(piece);
  }
  return texts;
}

}  // namespace tonalith::help_text
