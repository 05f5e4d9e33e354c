// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_page.h"

#include <algorithm>
#include <array>

#include "help/characters.h"
#include "help/markup.h"
#include "help/page_writer.h"

namespace tonalith::help {
namespace {

constexpr std::size_t kLongestStyleSheet = std::size_t{256} << 10;
constexpr std::size_t kLongestSelector = 200;

constexpr std::array<std::string_view, 8> kShapes = {"font-style",      "font-weight",    "text-align",
                                                     "white-space",     "vertical-align", "font-variant",
                                                     "list-style-type", "text-decoration"};

bool IsPlain(std::string_view text, std::string_view signs) {
  return std::all_of(text.begin(), text.end(), [&](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           signs.find(c) != std::string_view::npos;
  });
}

std::string WithoutComments(std::string_view text) {
  std::string kept;
  while (!text.empty()) {
    const std::size_t begin = std::min(text.find("/*"), text.size());
    kept += text.substr(0, begin);
    const std::size_t end = text.find("*/", std::min(begin + 2, text.size()));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
  }
  return kept;
}

std::string ShapesOfRule(std::string_view declarations) {
  std::string kept;
  while (!declarations.empty()) {
    const std::size_t end = std::min(declarations.find(';'), declarations.size());
    const std::string_view declaration = declarations.substr(0, end);
    declarations.remove_prefix(std::min(end + 1, declarations.size()));
    const std::size_t colon = declaration.find(':');
    if (colon == std::string_view::npos) continue;
    const std::string name = ToLowerCase(Collapsed(declaration.substr(0, colon)));
    const std::string value = Collapsed(declaration.substr(colon + 1));
    const bool isShape = std::find(kShapes.begin(), kShapes.end(), name) != kShapes.end();
    if (isShape && !value.empty() && IsPlain(value, " -")) kept.append(name).append(":").append(value).append(";");
  }
  return kept;
}

}  // namespace

HelpPage ReadHelpPage(std::string_view bytes) {
  HelpPage page;
  const std::string text = ToUtf8(bytes.substr(0, kLongestTopic));
  MarkupReader reader(text);
  PageWriter writer(page);
  while (const auto token = reader.Next()) writer.Take(*token);
  writer.Finish();
  if (bytes.size() > kLongestTopic) page.isCut = true;
  return page;
}

std::string EscapedForHtml(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size() + text.size() / 8);
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string ShapesOf(std::string_view styleSheet) {
  const std::string whole = WithoutComments(ToUtf8(styleSheet.substr(0, kLongestStyleSheet)));
  std::string_view rest = whole;
  std::string kept;
  while (!rest.empty()) {
    const std::size_t open = rest.find('{');
    if (open == std::string_view::npos) break;
    const std::size_t close = std::min(rest.find('}', open), rest.size());
    const std::string selector = Collapsed(rest.substr(0, open));
    const std::string shapes = ShapesOfRule(rest.substr(open + 1, close - open - 1));
    rest.remove_prefix(std::min(close + 1, rest.size()));
    if (!shapes.empty() && selector.size() <= kLongestSelector && IsPlain(selector, " .,-_"))
      kept.append(selector).append("{").append(shapes).append("}\n");
  }
  return kept;
}

}  // namespace tonalith::help
