// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/site_map.h"

#include <algorithm>
#include <cstdint>

#include "help/characters.h"
#include "help/markup.h"

namespace tonalith::help {
namespace {

constexpr int kDeepest = 15;
constexpr std::size_t kMostEntries = 10'000;
constexpr std::size_t kMostTargets = 64;
constexpr std::size_t kVersionSize = 4;
constexpr std::size_t kRecordHead = 4;

enum class SettingCode : std::uint16_t { kContents = 0, kIndex = 1, kDefaultTopic = 2, kTitle = 3 };

/// Builds an entry from one object: the first name is the entry's, a later one belongs to the next target.
class EntryMaker {
 public:
  explicit EntryMaker(int depth) { entry_.depth = depth; }

  void Take(const MarkupToken& parameter) {
    const std::string name = ToLowerCase(parameter.Attribute("name"));
    const std::string value = Collapsed(parameter.Attribute("value"));
    if (name == "name" || name == "keyword") {
      (entry_.name.empty() ? entry_.name : targetTitle_) = value;
    } else if (name == "local" && !value.empty() && entry_.targets.size() < kMostTargets) {
      entry_.targets.push_back({targetTitle_.empty() ? entry_.name : targetTitle_, value});
      targetTitle_.clear();
    }
  }

  [[nodiscard]] bool IsWhole() const { return !entry_.name.empty(); }
  SiteMapEntry Give() { return std::move(entry_); }

 private:
  SiteMapEntry entry_;
  std::string targetTitle_;
};

std::uint16_t Number(std::string_view bytes) {
  return static_cast<std::uint16_t>(static_cast<std::uint8_t>(bytes[0]) | (static_cast<std::uint8_t>(bytes[1]) << 8));
}

}  // namespace

std::vector<SiteMapEntry> ReadSiteMap(std::string_view bytes) {
  using Kind = MarkupToken::Kind;
  const std::string text = ToUtf8(bytes);
  MarkupReader reader(text);
  std::vector<SiteMapEntry> entries;
  std::optional<EntryMaker> object;
  int lists = 0;
  while (const auto token = reader.Next()) {
    const std::string& tag = token->text;
    if (token->kind == Kind::kText) continue;
    const bool opens = token->kind == Kind::kOpen;
    if (tag == "ul" || tag == "ol") {
      lists = std::clamp(lists + (opens ? 1 : -1), 0, kDeepest + 1);
    } else if (tag == "object" && opens) {
      object.reset();
      if (ToLowerCase(token->Attribute("type")) == "text/sitemap") object.emplace(std::max(lists - 1, 0));
    } else if (tag == "param" && opens && object) {
      object->Take(*token);
    } else if (tag == "object" && object) {
      if (object->IsWhole() && entries.size() < kMostEntries) entries.push_back(object->Give());
      object.reset();
    }
  }
  return entries;
}

ChmSettings ReadChmSettings(std::string_view bytes) {
  ChmSettings settings;
  bytes.remove_prefix(std::min(kVersionSize, bytes.size()));
  while (bytes.size() >= kRecordHead) {
    const auto code = static_cast<SettingCode>(Number(bytes));
    const std::size_t length = Number(bytes.substr(2));
    bytes.remove_prefix(kRecordHead);
    const std::string_view record = bytes.substr(0, length);
    const std::string text = ToUtf8(record.substr(0, std::min(record.find('\0'), record.size())));
    if (code == SettingCode::kContents) settings.contents = text;
    if (code == SettingCode::kIndex) settings.index = text;
    if (code == SettingCode::kDefaultTopic) settings.defaultTopic = text;
    if (code == SettingCode::kTitle) settings.title = text;
    bytes.remove_prefix(std::min(length, bytes.size()));
  }
  return settings;
}

}  // namespace tonalith::help
