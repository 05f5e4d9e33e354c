// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A help file as its reader thinks of it: a title, contents, an index, pages and the links between them. Made of the
// objects of a compiled help file, of which nothing is believed; paths are compared without regard to ASCII case.
// Pages are made when they are first asked for and kept. Owned by the window; one thread. Throws core::Failure when
// there is no page to open at; asks nothing of the system.

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

/// A page, by its path, and an anchor on it, if there is one.
struct HelpTarget {
  std::string page;
  std::string anchor;
  bool operator==(const HelpTarget&) const = default;
};

struct HelpLink {
  enum class Kind {
    kInside,
    /// The place is one of this file, but there is no such page.
    kMissing,
    /// An address of the network or of mail.
    kOutside,
    /// What a help window does not open: local files, scripts.
    kRefused,
  };
  Kind kind = Kind::kRefused;
  HelpTarget place;
  std::string address;
};

struct ContentsEntry {
  int depth = 0;
  std::string title;
  std::optional<HelpTarget> place;
};

struct IndexTarget {
  std::string title;
  HelpTarget place;
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
  /// The file's own, else the first of the contents, else "index.htm" or "index.html".
  [[nodiscard]] const HelpTarget& DefaultTarget() const { return defaultTarget_; }
  [[nodiscard]] const std::vector<ContentsEntry>& Contents() const { return contents_; }
  [[nodiscard]] const std::vector<IndexEntry>& Index() const { return index_; }
  /// The paths of all pages: in the order of the contents, then those that the contents leave out.
  [[nodiscard]] const std::vector<std::string>& Pages() const { return pages_; }

  /// Null when there is no such page. Stays valid as long as the book.
  [[nodiscard]] const HelpPage* Page(const std::string& path) const;
  /// What the page calls itself, else what the contents call it, else its path.
  [[nodiscard]] std::string TitleOf(const std::string& path) const;
  /// Where a link on that page leads.
  [[nodiscard]] HelpLink Follow(const std::string& page, const std::string& link) const;
  /// A picture or style sheet that a page names; null when the file does not hold it.
  [[nodiscard]] const std::string* Attached(const std::string& page, const std::string& source) const;

 private:
  [[nodiscard]] const std::string* Object(const std::string& path) const;
  [[nodiscard]] HelpTarget FindDefault(const std::string& named) const;
  [[nodiscard]] std::string ListPath(const std::string& named, std::string_view ending) const;
  [[nodiscard]] bool HasPage(const HelpTarget& place) const;
  void ReadContents(const std::string& path);
  void ReadIndex(const std::string& path);
  void ListPages();

  /// By paths in small letters.
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
