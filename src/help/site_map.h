// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Parses the lists of a compiled help file: contents and index (both are nested HTML lists of objects with named
// parameters) and the compiler's settings. Accepts any input; an invalid list gives the entries that could be read,
// possibly none.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tonalith::help {

struct SiteMapTarget {
  std::string title;
  std::string local;
  bool operator==(const SiteMapTarget&) const = default;
};

struct SiteMapEntry {
  /// Nesting level, 0 in the outermost list.
  int depth = 0;
  std::string name;
  /// In the contents at most one; in the index all targets of the keyword, each with its title.
  std::vector<SiteMapTarget> targets;
  bool operator==(const SiteMapEntry&) const = default;
};

/// The entries in order. Depths above 15 count as 15; entries after the first 10,000 are dropped.
std::vector<SiteMapEntry> ReadSiteMap(std::string_view bytes);

/// Paths as the compiler wrote them; empty if missing.
struct ChmSettings {
  std::string contents;
  std::string index;
  std::string defaultTopic;
  std::string title;
};

/// Parses the object "/#SYSTEM": a version of 4 bytes, then records of a code and a length (2 bytes each,
/// little-endian) and a text of that length, which ends at its first zero.
ChmSettings ReadChmSettings(std::string_view bytes);

}  // namespace tonalith::help
