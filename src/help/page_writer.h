// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Writes the tokens of a topic into a HelpPage as well-formed HTML: closes open tags, drops unknown tags but keeps
// their text, and limits nesting, tables and attributes, so that a crafted page cannot make the layout slow.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "help/help_page.h"
#include "help/markup.h"

namespace tonalith::help {

class PageWriter {
 public:
  explicit PageWriter(HelpPage& page) : page_(page) {}

  void Take(const MarkupToken& token);
  /// Closes all open tags. Call it once, at the end.
  void Finish();

 private:
  struct OpenTag {
    std::string tag;
    std::string closing;
  };

  void TakeText(std::string_view text);
  /// The factor by which cells and text count at the present table nesting.
  [[nodiscard]] int NestingCost() const;
  /// The start of `text` that fits the size limit; marks the page as truncated if that is not all.
  [[nodiscard]] std::string_view WithinLimit(std::string_view text);
  /// The start of preformatted text whose lines fit the limit.
  [[nodiscard]] std::string_view LinesWithinLimit(std::string_view text);
  /// Whether one more tag fits the limit; marks the page as truncated otherwise.
  [[nodiscard]] bool TakesTag(std::string_view tag);
  void Open(const MarkupToken& token);
  void Close(std::string_view tag);
  void OpenTableTag(const MarkupToken& token);
  void OpenBlock(const MarkupToken& token);
  void OpenLink(const MarkupToken& token);
  void WriteAnchor(const MarkupToken& token);
  void WritePicture(const MarkupToken& token);
  void Push(std::string_view tag, const std::string& opening, const std::string& closing);
  void PopTo(std::size_t depth);
  void EndLine();
  /// The innermost open tag of that name inside the innermost open table; npos if there is none.
  [[nodiscard]] std::size_t FindOpen(std::string_view tag, bool beyondTables = false) const;

  HelpPage& page_;
  std::vector<OpenTag> open_;
  int tables_ = 0;
  int cellCost_ = 0;
  int cellsInRow_ = 0;
  int tags_ = 0;
  std::size_t blocks_ = 0;
  std::size_t textBytes_ = 0;
  std::size_t wordBytes_ = 0;
  bool isInTitle_ = false;
  bool isInHeading_ = false;
  std::string heading_;
};

}  // namespace tonalith::help
