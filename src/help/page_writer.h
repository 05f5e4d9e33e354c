// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Takes the pieces of a topic and writes them into a HelpPage, keeping the result well-formed: what is open is closed,
// what does not belong is left out while its text stays, and nesting, tables and attributes have limits, so that no
// page can overwork whoever lays it out. One page each; one thread; never fails.

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

  void Take(const MarkupToken& piece);
  /// Closes what is open. Call it once, at the end.
  void Finish();

 private:
  struct OpenTag {
    std::string tag;
    std::string closing;
  };

  void TakeText(std::string_view text);
  /// How many times as much as outside tables a cell and a byte of text count here.
  [[nodiscard]] int NestingCost() const;
  /// The beginning of `text` that the page still has room for; marks the page as cut when that is not all.
  [[nodiscard]] std::string_view WithinLimit(std::string_view text);
  /// The beginning of preformatted text whose lines the page still has room for.
  [[nodiscard]] std::string_view LinesWithinLimit(std::string_view text);
  /// True while the page has room for one more tag; marks the page as cut otherwise.
  [[nodiscard]] bool TakesTag(std::string_view tag);
  void Open(const MarkupToken& piece);
  void Close(std::string_view tag);
  void OpenTableTag(const MarkupToken& piece);
  void OpenBlock(const MarkupToken& piece);
  void OpenLink(const MarkupToken& piece);
  void WriteAnchor(const MarkupToken& piece);
  void WritePicture(const MarkupToken& piece);
  void Push(std::string_view tag, const std::string& opening, const std::string& closing);
  void PopTo(std::size_t depth);
  void EndLine();
  /// The innermost open tag of that name, above the innermost open table; npos when there is none.
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
