// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The lists of a compiled help file: contents and index (both are nested HTML lists of objects with named parameters)
// and the settings that the compiler left. Whatever the bytes are, a list comes out, perhaps an empty one; never fails.
// Values, owned by whoever asked.

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
  /// How many lists the entry stands in beyond the outermost one.
  int depth = 0;
  std::string name;
  /// In the contents one at most; in the index as many as the keyword has, each with the title it gives.
  std::vector<SiteMapTarget> targets;
  bool operator==(const SiteMapEntry&) const = default;
};

/// The entries in their order. Depths beyond 15 count as 15, entries beyond 10,000 are left out.
std::vector<SiteMapEntry> ReadSiteMap(std::string_view bytes);

/// Paths as the compiler wrote them; empty where there are none.
struct ChmSettings {
  std::string contents;
  std::string index;
  std::string defaultTopic;
  std::string title;
};

/// Out of the object "/#SYSTEM": after a version of 4 bytes, records of a code and a length (2 bytes each, the lower
/// first) and so many bytes of text that ends at its first zero.
ChmSettings ReadChmSettings(std::string_view bytes);

}  // namespace tonalith::help
