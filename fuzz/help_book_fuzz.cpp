// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Any bytes as what the process that reads a help file says about it: objects, settings, contents, index, topics, style
// sheets and links, all the way to the HTML that the window is given. That HTML has to be well-formed and not too deep,
// and every link has to lead somewhere or nowhere.

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

/// The deepest that a page may nest, each of its boxes being three tags.
constexpr std::size_t kDeepest = 60;

void Demand(bool holds) {
  if (!holds) std::abort();
}

void DemandWellFormed(const std::string& html) {
  using Kind = help::MarkupToken::Kind;
  std::vector<std::string> open;
  help::MarkupReader reader(html);
  while (const auto piece = reader.Next()) {
    const std::string& tag = piece->text;
    if (piece->kind == Kind::kText || tag == "br" || tag == "hr" || tag == "img") continue;
    if (piece->kind == Kind::kOpen) {
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
    const help::HelpLink target = book.Follow(path, link);
    if (target.kind == help::HelpLink::Kind::kInside) Demand(book.Page(target.place.page) != nullptr);
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
