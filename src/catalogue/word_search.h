// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Searches names by words, ignoring case and accents. A typed word matches where a word of the name begins with it;
// all typed words must match in one name.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"

namespace tonalith::catalogue {

class WordSearch {
 public:
  /// As long as the longest name; the rest of a longer text is ignored.
  static constexpr std::size_t kMostCharacters = 255;

  /// Words are separated by blanks. A text without words matches everything.
  explicit WordSearch(std::string_view text);

  [[nodiscard]] bool Matches(std::string_view name);
  /// Whether the name or an alias of an entry matches.
  [[nodiscard]] bool Matches(const Catalogue& catalogue, std::size_t index);

 private:
  std::vector<std::u32string> words_;
  std::u32string folded_;
};

}  // namespace tonalith::catalogue
