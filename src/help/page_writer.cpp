// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/page_writer.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tonalith::help {
namespace {

constexpr std::size_t kNone = std::string::npos;
constexpr std::size_t kDeepest = 40;
constexpr int kMostTables = 3;
constexpr int kHighestCellCost = 1500;
/// Qt lays out a nested table again for each width of the outer one, so its cells and text count this many times.
constexpr int kNestedTableCost = 8;
constexpr int kMostCellsInRow = 24;
constexpr int kWidestSpan = 24;
constexpr int kLargestPicture = 4000;
constexpr std::size_t kMostLinks = 5000;
constexpr std::size_t kMostPictures = 500;
constexpr std::size_t kLongestClass = 40;

template <std::size_t kCount>
using Names = std::array<std::string_view, kCount>;

constexpr Names<14> kInline = {"b",   "strong", "i",    "em", "u",   "s",   "sub",
                               "sup", "code",   "samp", "tt", "kbd", "var", "span"};
constexpr Names<13> kBlocks = {"p", "h1", "h2", "h3", "h4", "h5", "h6", "pre", "ul", "ol", "li", "dt", "dd"};
constexpr Names<14> kDivisions = {"div",   "section", "article",    "main",    "header", "footer",     "nav",
                                  "aside", "figure",  "figcaption", "address", "center", "blockquote", "dl"};
constexpr Names<5> kBoxes = {"note", "tip", "warning", "message", "example"};

template <std::size_t kCount>
bool Has(const Names<kCount>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsHeading(std::string_view tag) { return tag.size() == 2 && tag[0] == 'h' && tag[1] >= '1' && tag[1] <= '6'; }

bool EndsLine(std::string_view tag) {
  return Has(kBlocks, tag) || Has(kDivisions, tag) || tag == "br" || tag == "tr" || tag == "table" || tag == "hr";
}

/// The number at the start of `text`; 0 if there is none, for percentages and if it is out of range.
int Number(const std::string& text, int highest) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isShare = end != text.data() + text.size() && *end == '%';
  return error != std::errc() || isShare || number < 0 || number > highest ? 0 : number;
}

/// The class names, if they are plain enough for a style sheet.
std::string ClassOf(const MarkupToken& token) {
  const std::string names = ToLowerCase(token.Attribute("class").substr(0, kLongestClass));
  const bool isPlain = std::all_of(names.begin(), names.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == ' ';
  });
  return isPlain ? names : std::string();
}

std::string ClassAttribute(const std::string& names) { return names.empty() ? "" : " class=\"" + names + "\""; }

/// The first class name that is a box.
std::string_view BoxOf(const std::string& names) {
  const std::string padded = " " + names + " ";
  for (const std::string_view box : kBoxes) {
    if (padded.find(" " + std::string(box) + " ") != kNone) return box;
  }
  return {};
}

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// Inserts a zero-width space after every kLongestHelpWord bytes of a word. `word` is the length of the word that the
/// text continues, and returns the length of the last word.
std::string WithBreaks(std::string_view text, std::size_t& word) {
  constexpr std::string_view kZeroWidthSpace = "\xE2\x80\x8B";
  std::string broken;
  broken.reserve(text.size());
  for (const char c : text) {
    const bool isBlank = c == ' ' || c == '\n' || c == '\t' || c == '\r';
    if (word >= kLongestHelpWord && !isBlank && !ContinuesCharacter(c)) {
      broken += kZeroWidthSpace;
      word = 0;
    }
    word = isBlank ? 0 : word + 1;
    broken += c;
  }
  return broken;
}

std::string Tagged(std::string_view tag, const std::string& attributes) {
  return "<" + std::string(tag) + attributes + ">";
}

}  // namespace

void PageWriter::Take(const MarkupToken& token) {
  switch (token.kind) {
    case MarkupToken::Kind::kText:
      return TakeText(token.text);
    case MarkupToken::Kind::kOpen:
      return Open(token);
    case MarkupToken::Kind::kClose:
      return Close(token.text);
  }
}

void PageWriter::Finish() {
  PopTo(0);
  page_.title = Collapsed(page_.title);
  if (page_.title.empty()) page_.title = Collapsed(heading_);
}

void PageWriter::TakeText(std::string_view text) {
  text = WithinLimit(FindOpen("pre") == kNone ? text : LinesWithinLimit(text));
  if (isInTitle_) {
    page_.title += text;
    return;
  }
  // Drop text between the rows of a table: Qt would show it before the table.
  if (!open_.empty() && (open_.back().tag == "table" || open_.back().tag == "tr")) return;
  page_.html += EscapedForHtml(WithBreaks(text, wordBytes_));
  page_.text += text;
  if (isInHeading_) heading_ += text;
}

int PageWriter::NestingCost() const {
  int cost = 1;
  for (int depth = 1; depth < tables_; ++depth) cost *= kNestedTableCost;
  return cost;
}

std::string_view PageWriter::WithinLimit(std::string_view text) {
  const std::size_t cost = NestingCost();
  std::size_t room = (kLongestHelpText - textBytes_) / cost;
  if (text.size() > room) {
    page_.isCut = true;
    while (room > 0 && ContinuesCharacter(text[room])) --room;
    text = text.substr(0, room);
  }
  textBytes_ = page_.isCut ? kLongestHelpText : textBytes_ + text.size() * cost;
  return text;
}

std::string_view PageWriter::LinesWithinLimit(std::string_view text) {
  for (std::size_t end = text.find('\n'); end != kNone; end = text.find('\n', end + 1)) {
    if (++blocks_ <= kMostHelpBlocks) continue;
    page_.isCut = true;
    return text.substr(0, end);
  }
  return text;
}

bool PageWriter::TakesTag(std::string_view tag) {
  ++tags_;
  if (EndsLine(tag)) {
    ++blocks_;
    wordBytes_ = 0;
  }
  if (tags_ > kMostHelpTags || blocks_ > kMostHelpBlocks) page_.isCut = true;
  // Once truncated, the page accepts no more text.
  if (page_.isCut) textBytes_ = kLongestHelpText;
  return !page_.isCut;
}

void PageWriter::Open(const MarkupToken& token) {
  const std::string& tag = token.text;
  if (!TakesTag(tag)) return;
  isInTitle_ = tag == "title";
  if (EndsLine(tag)) EndLine();
  if (tag == "link") {
    if (ToLowerCase(token.Attribute("rel")) == "stylesheet" && page_.styleSheets.size() < 8) {
      page_.styleSheets.push_back(token.Attribute("href"));
    }
  } else if (tag == "br" || tag == "hr") {
    page_.html += tag == "br" ? "<br>" : "<hr>";
  } else if (tag == "img") {
    WritePicture(token);
  } else if (tag == "a") {
    OpenLink(token);
  } else if (tag == "table" || tag == "tr" || tag == "td" || tag == "th") {
    OpenTableTag(token);
  } else if (Has(kInline, tag)) {
    Push(tag, Tagged(tag, ClassAttribute(ClassOf(token))), "</" + tag + ">");
    WriteAnchor(token);
  } else if (Has(kBlocks, tag) || Has(kDivisions, tag) || tag == "caption") {
    OpenBlock(token);
  }
}

void PageWriter::OpenBlock(const MarkupToken& token) {
  const std::string& tag = token.text;
  // The next block closes a paragraph, the next item closes an item.
  if (const std::size_t at = FindOpen("p"); at != kNone) PopTo(at);
  if (tag == "li") {
    const std::size_t item = FindOpen("li");
    const std::size_t unordered = FindOpen("ul");
    const std::size_t ordered = FindOpen("ol");
    const bool isInList = (unordered != kNone && unordered > item) || (ordered != kNone && ordered > item);
    if (item != kNone && !isInList) PopTo(item);
  }
  if (tag == "dt" || tag == "dd") {
    for (const char* const other : {"dt", "dd"}) {
      if (const std::size_t at = FindOpen(other); at != kNone) PopTo(at);
    }
  }
  const std::string names = ClassOf(token);
  const std::string_view box = tag == "pre" ? std::string_view("code") : BoxOf(names);
  if (IsHeading(tag)) isInHeading_ = heading_.empty();
  if (!box.empty() && tables_ < kMostTables) {
    const std::string name(box);
    const bool isCode = tag == "pre";
    Push(tag, "<table class=\"box\" width=\"100%\"><tr><td class=\"" + name + "\">" + (isCode ? "<pre>" : ""),
         std::string(isCode ? "</pre>" : "") + "</td></tr></table>");
  } else {
    const bool isKept = Has(kBlocks, tag);
    const std::string written = isKept ? tag : "div";
    const std::string own = tag == "caption" ? "tablecaption" : tag;
    Push(tag, Tagged(written, ClassAttribute(isKept || !names.empty() ? names : own)), "</" + written + ">");
  }
  WriteAnchor(token);
}

void PageWriter::OpenTableTag(const MarkupToken& token) {
  const std::string& tag = token.text;
  if (tag == "table") {
    if (const std::size_t at = FindOpen("p"); at != kNone) PopTo(at);
    if (tables_ >= kMostTables || open_.size() + 3 > kDeepest) return;
    const std::string names = ClassOf(token);
    Push(tag, Tagged(tag, ClassAttribute(names.empty() ? "grid" : names)), "</table>");
    return;
  }
  const std::size_t table = FindOpen("table", true);
  if (table == kNone) return;
  std::size_t row = FindOpen("tr", true);
  if (row != kNone && row < table) row = kNone;
  if (tag == "tr") {
    PopTo(table + 1);
    cellsInRow_ = 0;
    Push(tag, "<tr>", "</tr>");
  } else if (row != kNone && cellCost_ < kHighestCellCost && cellsInRow_ < kMostCellsInRow) {
    PopTo(row + 1);
    cellCost_ += NestingCost();
    ++cellsInRow_;
    std::string attributes = ClassAttribute(ClassOf(token));
    for (const char* const span : {"colspan", "rowspan"}) {
      const int count = Number(token.Attribute(span), kWidestSpan);
      if (count > 1) attributes += " " + std::string(span) + "=\"" + std::to_string(count) + "\"";
    }
    if (!page_.text.empty() && page_.text.back() != '\n') page_.text += ' ';
    Push(tag, Tagged(tag, attributes), "</" + tag + ">");
  }
}

void PageWriter::OpenLink(const MarkupToken& token) {
  WriteAnchor(token);
  if (const std::size_t at = FindOpen("a"); at != kNone) PopTo(at);
  const std::string& target = token.Attribute("href");
  if (target.empty() || page_.links.size() >= kMostLinks) return;
  Push("a", "<a href=\"link:" + std::to_string(page_.links.size()) + "\">", "</a>");
  page_.links.push_back(target);
}

void PageWriter::WriteAnchor(const MarkupToken& token) {
  const std::string& id = token.Attribute("id");
  const std::string& name = token.text == "a" && id.empty() ? token.Attribute("name") : id;
  if (!name.empty()) page_.html += "<a name=\"" + EscapedForHtml(name) + "\"></a>";
}

void PageWriter::WritePicture(const MarkupToken& token) {
  const std::string& source = token.Attribute("src");
  if (source.empty() || page_.pictures.size() >= kMostPictures) return;
  page_.html += "<img src=\"picture:" + std::to_string(page_.pictures.size()) + "\">";
  page_.pictures.push_back({source, Number(token.Attribute("width"), kLargestPicture),
                            Number(token.Attribute("height"), kLargestPicture), Collapsed(token.Attribute("alt"))});
}

void PageWriter::Push(std::string_view tag, const std::string& opening, const std::string& closing) {
  if (open_.size() >= kDeepest) return;
  if (closing.ends_with("</table>")) ++tables_;
  open_.push_back({std::string(tag), closing});
  page_.html += opening;
}

void PageWriter::Close(std::string_view tag) {
  if (tag == "title") isInTitle_ = false;
  if (EndsLine(tag)) EndLine();
  const std::size_t at = FindOpen(tag, tag == "table" || tag == "tr");
  if (at != kNone) PopTo(at);
}

void PageWriter::PopTo(std::size_t depth) {
  while (open_.size() > depth) {
    const OpenTag& last = open_.back();
    page_.html += last.closing;
    if (last.closing.ends_with("</table>")) --tables_;
    if (IsHeading(last.tag)) isInHeading_ = false;
    open_.pop_back();
  }
}

void PageWriter::EndLine() {
  if (!page_.text.empty() && page_.text.back() != '\n') page_.text += '\n';
}

std::size_t PageWriter::FindOpen(std::string_view tag, bool beyondTables) const {
  for (std::size_t at = open_.size(); at-- > 0;) {
    if (open_[at].tag == tag) return at;
    const bool isCell = open_[at].tag == "td" || open_[at].tag == "th";
    if (isCell && !beyondTables) return kNone;
  }
  return kNone;
}

}  // namespace tonalith::help
