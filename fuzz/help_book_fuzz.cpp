// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fuzzes the parsing of the stream from the child process: objects, settings, contents, index, topics, style sheets and
// links, up to the HTML for the window. The HTML must be well-formed with limited nesting, and every internal link must
// have a page.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "core/failure.h"
#include "help/chm_file.h"
#include "help/help_book.h"
#include "help/markup.h"

namespace {

using namespace tonalith;  // NOLINT(google-build-using-namespace)

/// The maximum nesting of a page; each box has three tags.
constexpr std::size_t kDeepest = 60;

void Demand(bool condition) {
  if (!condition) std::abort();
}

void DemandWellFormed(const std::string& html) {
  using Kind = help::MarkupToken::Kind;
  std::vector<std::string> open;
  help::MarkupReader reader(html);
  while (const auto token = reader.Next()) {
    const std::string& tag = token->text;
    if (token->kind == Kind::kText || tag == "br" || tag == "hr" || tag == "img") continue;
    if (token->kind == Kind::kOpen) {
      open.push_back(tag);
      Demand(open.size() <= kDeepest);
    } else {
      Demand(!open.empty() && open.back() == tag);
      open.pop_back();
    }
  }
  Demand(open.empty());
}

void ReadPage(const help::HelpBook& book, const std::string& path) {
  const help::HelpPage* const page = book.Page(path);
  Demand(page != nullptr);
  DemandWellFormed(page->html);
  Demand(!book.TitleOf(path).empty() || path.empty());
  for (const std::string& link : page->links) {
    const help::HelpLink followed = book.Follow(path, link);
    if (followed.kind == help::HelpLink::Kind::kInside) Demand(book.Page(followed.target.page) != nullptr);
  }
  for (const help::HelpPicture& picture : page->pictures) {
    Demand(picture.width >= 0 && picture.height >= 0);
    static_cast<void>(book.Attached(path, picture.source));
  }
  for (const std::string& sheet : page->styleSheets) {
    const std::string* const bytes = book.Attached(path, sheet);
    if (bytes != nullptr) Demand(help::ShapesOf(*bytes).find("url") == std::string::npos);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::size_t at = 0;
  const auto source = [&](std::span<std::uint8_t> buffer) {
    const std::size_t count = std::min(buffer.size(), size - at);
    std::copy_n(data + at, count, buffer.begin());
    at += count;
    return count;
  };
  try {
    const help::HelpBook book(help::ReadChmStream(source));
    Demand(book.Page(book.DefaultTarget().page) != nullptr);
    for (const std::string& path : book.Pages()) ReadPage(book, path);
  } catch (const core::Failure& failure) {
    Demand(!failure.Description().empty());
  }
  return 0;
}
