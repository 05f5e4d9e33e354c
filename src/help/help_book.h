// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A help file as the user sees it: a title, contents, an index, pages and links. Built from the objects of a compiled
// help file, which are untrusted input; paths are compared without regard to ASCII case. Pages are parsed on first use
// and cached. Throws core::Failure if there is no page to open.

#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "help/chm_file.h"
#include "help/help_page.h"

namespace tonalith::help {

/// The path of a page and optionally an anchor on it.
struct HelpTarget {
  std::string page;
  std::string anchor;
  bool operator==(const HelpTarget&) const = default;
};

struct HelpLink {
  enum class Kind {
    kInside,
    /// The target is inside this file, but the page does not exist.
    kMissing,
    /// A web or mail address.
    kOutside,
    /// An address that the help window does not open: local files, scripts.
    kRefused,
  };
  Kind kind = Kind::kRefused;
  HelpTarget target;
  std::string address;
};

struct ContentsEntry {
  int depth = 0;
  std::string title;
  std::optional<HelpTarget> target;
};

struct IndexTarget {
  std::string title;
  HelpTarget target;
};

struct IndexEntry {
  int depth = 0;
  std::string keyword;
  std::vector<IndexTarget> targets;
};

class HelpBook {
 public:
  explicit HelpBook(ChmObjects objects);

  [[nodiscard]] const std::string& Title() const { return title_; }
  /// The file's setting, else the first page of the contents, else "index.htm" or "index.html".
  [[nodiscard]] const HelpTarget& DefaultTarget() const { return defaultTarget_; }
  [[nodiscard]] const std::vector<ContentsEntry>& Contents() const { return contents_; }
  [[nodiscard]] const std::vector<IndexEntry>& Index() const { return index_; }
  /// The paths of all pages: in the order of the contents, then those missing in the contents.
  [[nodiscard]] const std::vector<std::string>& Pages() const { return pages_; }

  /// Returns null if there is no such page. Valid as long as the book exists.
  [[nodiscard]] const HelpPage* Page(const std::string& path) const;
  /// The page's title, else its title in the contents, else its path.
  [[nodiscard]] std::string TitleOf(const std::string& path) const;
  /// The target of a link on that page.
  [[nodiscard]] HelpLink Follow(const std::string& page, const std::string& link) const;
  /// A picture or style sheet that a page uses; null if the file does not contain it.
  [[nodiscard]] const std::string* Attached(const std::string& page, const std::string& source) const;

 private:
  [[nodiscard]] const std::string* Object(const std::string& path) const;
  [[nodiscard]] HelpTarget FindDefault(const std::string& named) const;
  [[nodiscard]] std::string ListPath(const std::string& named, std::string_view ending) const;
  [[nodiscard]] bool HasPage(const HelpTarget& target) const;
  void ReadContents(const std::string& path);
  void ReadIndex(const std::string& path);
  void ListPages();

  /// The keys are paths in lower case.
  std::map<std::string, std::string> objects_;
  mutable std::map<std::string, HelpPage> read_;
  std::string title_;
  HelpTarget defaultTarget_;
  std::vector<ContentsEntry> contents_;
  std::vector<IndexEntry> index_;
  std::vector<std::string> pages_;
  std::set<std::string> isPage_;
};

}  // namespace tonalith::help
