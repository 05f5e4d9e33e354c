// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A tokenizer for HTML: text, opening tags with attributes, closing tags. Accepts any input in linear time and never
// fails: invalid tags are text, unknown entities stay unchanged. Comments, declarations, scripts and style sheets are
// skipped. Tokens are UTF-8 and own their text.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tonalith::help {

struct MarkupToken {
  enum class Kind { kText, kOpen, kClose };
  Kind kind = Kind::kText;
  /// The text with entities resolved, or the tag's name in lower case.
  std::string text;
  /// Names in lower case; values with entities resolved.
  std::vector<std::pair<std::string, std::string>> attributes;

  /// The value of the first attribute of that name; empty if there is none.
  [[nodiscard]] const std::string& Attribute(std::string_view name) const;
};

class MarkupReader {
 public:
  /// `markup` is UTF-8 and must outlive the reader.
  explicit MarkupReader(std::string_view markup) : rest_(markup) {}

  /// Returns nullopt at the end.
  std::optional<MarkupToken> Next();

 private:
  MarkupToken Text();
  bool SkipUnseen();
  MarkupToken Tag(std::size_t nameAt, bool closes);
  void ReadAttribute(MarkupToken& token);
  std::string TakeValue();
  void SkipBlanks();

  std::string_view rest_;
};

/// Converts ASCII letters to lower case.
std::string ToLowerCase(std::string_view text);

/// Replaces runs of white space by one blank and trims both ends.
std::string Collapsed(std::string_view text);

}  // namespace tonalith::help
