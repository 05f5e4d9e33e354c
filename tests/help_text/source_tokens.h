// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// C++ source as the tests of the help see it: words, marks and text literals. Comments and preprocessor lines are left
// out, escapes are resolved, and literals that stand next to each other are one. Pure functions; text that ends in the
// middle of a literal simply ends it.

#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::help_text {

struct SourceToken {
  enum class Kind { kWord, kMark, kLiteral };
  Kind kind = Kind::kMark;
  /// A word with its letters, one character of punctuation, or the text that a literal stands for (UTF-8).
  std::string text;

  [[nodiscard]] bool IsWord(std::string_view word) const { return kind == Kind::kWord && text == word; }
  [[nodiscard]] bool IsMark(char mark) const { return kind == Kind::kMark && text.front() == mark; }
};

std::vector<SourceToken> TokensOf(std::string_view source);

/// What a caption or message looks like when it is read: without mnemonics (&), runs of white space as one blank, none
/// at the ends.
std::string AsRead(std::string_view text);

/// The fixed pieces of a literal as they are read: what stands between line breaks and the places of arguments (%1).
/// Pieces without two letters, such as a quotation mark and a full stop, are left out.
std::vector<std::string> PiecesOf(std::string_view literal);

/// The whole text and the pieces of every literal of a source.
std::set<std::string> TextsOf(const std::vector<SourceToken>& tokens);

}  // namespace tonalith::help_text
