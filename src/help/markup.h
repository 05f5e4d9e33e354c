// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// HTML as a row of pieces: text, opening tags with their attributes, closing tags. Reads whatever it is given to its
// end, in time that grows with its length, and never fails: what is no tag is text, and an unknown entity stays as it
// is written. Comments, declarations, scripts and style sheets leave nothing. Pieces are UTF-8 and own their text. One
// thread.

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
  /// The text with its entities resolved, or the tag's name in small letters.
  std::string text;
  /// Names in small letters; values with their entities resolved.
  std::vector<std::pair<std::string, std::string>> attributes;

  /// The first attribute of that name; empty when there is none.
  [[nodiscard]] const std::string& Attribute(std::string_view name) const;
};

class MarkupReader {
 public:
  /// `markup` is UTF-8 and outlives the reader.
  explicit MarkupReader(std::string_view markup) : rest_(markup) {}

  /// Nothing at the end.
  std::optional<MarkupToken> Next();

 private:
  MarkupToken Text();
  bool SkipUnseen();
  MarkupToken Tag(std::size_t nameAt, bool closes);
  void ReadAttribute(MarkupToken& piece);
  std::string TakeValue();
  void SkipBlanks();

  std::string_view rest_;
};

/// ASCII letters made small, all else as it is.
std::string ToLowerCase(std::string_view text);

/// Runs of white space become one blank; none at either end.
std::string Collapsed(std::string_view text);

}  // namespace tonalith::help
