// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_book.h"

#include <algorithm>

#include "core/failure.h"
#include "help/help_address.h"
#include "help/markup.h"
#include "help/messages.h"
#include "help/site_map.h"

namespace tonalith::help {
namespace {

/// Titles require parsing the page, so their number is limited.
constexpr std::size_t kMostTitlesAtOnce = 200;

bool IsPagePath(std::string_view path) { return path.ends_with(".htm") || path.ends_with(".html"); }

bool IsOutside(const std::string& scheme) { return scheme == "http" || scheme == "https" || scheme == "mailto"; }

/// The target of a link in a list of the file, relative to the root.
HelpTarget TargetOf(std::string_view local) {
  local = WithoutStore(local);
  const std::size_t hash = std::min(local.find('#'), local.size());
  HelpTarget target{ResolvedPath("/", PercentDecoded(local.substr(0, hash))), {}};
  if (hash < local.size()) target.anchor = PercentDecoded(local.substr(hash + 1));
  return target;
}

}  // namespace

HelpBook::HelpBook(ChmObjects objects) {
  while (!objects.empty()) {
    auto object = objects.extract(objects.begin());
    objects_.insert_or_assign(ResolvedPath("/", object.key()), std::move(object.mapped()));
  }
  ChmSettings settings;
  if (const std::string* const system = Object("/#system")) settings = ReadChmSettings(*system);
  ReadContents(ListPath(settings.contents, ".hhc"));
  ReadIndex(ListPath(settings.index, ".hhk"));
  ListPages();
  defaultTarget_ = FindDefault(settings.defaultTopic);
  title_ = Collapsed(settings.title);
  if (title_.empty()) title_ = TitleOf(defaultTarget_.page);
}

const std::string* HelpBook::Object(const std::string& path) const {
  const auto found = objects_.find(path);
  return found == objects_.end() ? nullptr : &found->second;
}

std::string HelpBook::ListPath(const std::string& named, std::string_view ending) const {
  std::string path = ResolvedPath("/", named);
  if (!named.empty() && Object(path) != nullptr) return path;
  const auto found = std::find_if(objects_.begin(), objects_.end(),
                                  [&](const auto& object) { return object.first.ends_with(ending); });
  return found == objects_.end() ? std::string() : found->first;
}

void HelpBook::ReadContents(const std::string& path) {
  const std::string* const list = Object(path);
  if (list == nullptr) return;
  for (const SiteMapEntry& entry : ReadSiteMap(*list)) {
    std::optional<HelpTarget> target;
    if (!entry.targets.empty()) target = TargetOf(entry.targets.front().local);
    contents_.push_back({entry.depth, entry.name, target});
  }
}

void HelpBook::ReadIndex(const std::string& path) {
  const std::string* const list = Object(path);
  if (list == nullptr) return;
  for (const SiteMapEntry& entry : ReadSiteMap(*list)) {
    IndexEntry& added = index_.emplace_back(IndexEntry{entry.depth, entry.name, {}});
    for (const SiteMapTarget& target : entry.targets) added.targets.push_back({target.title, TargetOf(target.local)});
  }
}

void HelpBook::ListPages() {
  const auto add = [this](const std::string& path) {
    if (Object(path) != nullptr && isPage_.insert(path).second) pages_.push_back(path);
  };
  for (const ContentsEntry& entry : contents_) {
    if (entry.target) add(entry.target->page);
  }
  for (const auto& [path, bytes] : objects_) {
    if (IsPagePath(path)) add(path);
  }
  // Without contents, list all pages.
  if (!contents_.empty()) return;
  const bool isShort = pages_.size() <= kMostTitlesAtOnce;
  for (const std::string& path : pages_) {
    contents_.push_back({0, isShort ? TitleOf(path) : path, HelpTarget{path, {}}});
  }
}

bool HelpBook::HasPage(const HelpTarget& target) const { return isPage_.contains(target.page); }

HelpTarget HelpBook::FindDefault(const std::string& named) const {
  std::vector<HelpTarget> candidates;
  if (!named.empty()) candidates.push_back(TargetOf(named));
  for (const ContentsEntry& entry : contents_) {
    if (entry.target) candidates.push_back(*entry.target);
  }
  candidates.push_back({"/index.htm", {}});
  candidates.push_back({"/index.html", {}});
  const auto found =
      std::find_if(candidates.begin(), candidates.end(), [this](const HelpTarget& target) { return HasPage(target); });
  if (found == candidates.end()) throw core::Failure::Unspecified(MessageId::kNoPage);
  return *found;
}

const HelpPage* HelpBook::Page(const std::string& path) const {
  const auto kept = read_.find(path);
  if (kept != read_.end()) return &kept->second;
  const std::string* const bytes = Object(path);
  if (bytes == nullptr || !HasPage({path, {}})) return nullptr;
  return &read_.emplace(path, ReadHelpPage(*bytes)).first->second;
}

std::string HelpBook::TitleOf(const std::string& path) const {
  const HelpPage* const page = Page(path);
  if (page != nullptr && !page->title.empty()) return page->title;
  const auto entry = std::find_if(contents_.begin(), contents_.end(), [&](const ContentsEntry& candidate) {
    return candidate.target && candidate.target->page == path;
  });
  return entry == contents_.end() ? path : entry->title;
}

HelpLink HelpBook::Follow(const std::string& page, const std::string& link) const {
  HelpLink followed;
  const std::string_view address = WithoutStore(link);
  const std::string scheme = SchemeOf(address);
  if (!scheme.empty() || address.substr(0, 2) == "//") {
    if (IsOutside(scheme)) followed.kind = HelpLink::Kind::kOutside;
    followed.address = link;
    return followed;
  }
  const std::size_t hash = std::min(address.find('#'), address.size());
  const std::string path = PercentDecoded(address.substr(0, std::min(address.find('?'), hash)));
  followed.target.page = path.empty() ? page : ResolvedPath(page, path);
  if (hash < address.size()) followed.target.anchor = PercentDecoded(address.substr(hash + 1));
  followed.kind = HasPage(followed.target) ? HelpLink::Kind::kInside : HelpLink::Kind::kMissing;
  return followed;
}

const std::string* HelpBook::Attached(const std::string& page, const std::string& source) const {
  const std::string_view address = WithoutStore(source);
  if (!SchemeOf(address).empty() || address.substr(0, 2) == "//") return nullptr;
  return Object(ResolvedPath(page, PercentDecoded(address)));
}

}  // namespace tonalith::help
