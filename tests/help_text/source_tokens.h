// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A C++ tokenizer for the tests of the help: words, punctuation and string literals. Skips comments and preprocessor
// lines, resolves escapes, and joins adjacent literals. The end of the text ends an open literal.

#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::help_text {

struct SourceToken {
  enum class Kind { kWord, kPunctuation, kLiteral };
  Kind kind = Kind::kPunctuation;
  /// A word, one punctuation character, or the content of a literal (UTF-8).
  std::string text;

  [[nodiscard]] bool IsWord(std::string_view word) const { return kind == Kind::kWord && text == word; }
  [[nodiscard]] bool IsPunctuation(char character) const {
    return kind == Kind::kPunctuation && text.front() == character;
  }
};

std::vector<SourceToken> TokensOf(std::string_view source);

/// A caption or message as displayed: without mnemonics (&), with white space collapsed and trimmed.
std::string AsDisplayed(std::string_view text);

/// The fixed parts of a literal as displayed, split at line breaks and placeholders (%1). Parts with fewer than two
/// letters, such as a quotation mark, are dropped.
std::vector<std::string> PiecesOf(std::string_view literal);

/// The complete text and the parts of every literal of a source.
std::set<std::string> TextsOf(const std::vector<SourceToken>& tokens);

}  // namespace tonalith::help_text
