// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The like operator: `*` any run of characters, `?` any character, `#` a digit 0 to 9, `[list]` a character of the
// list, `[!list]` a character not in the list; any other character means itself, also `]` outside a list. In a list a
// hyphen between two characters is a range of character codes; at either end or after a range it means itself, as do
// `[`, `*`, `?`, `#`, and `!` except as the first character. `[]` is empty text and `[!]` the character `!`. Matching
// is case-sensitive: to ignore case, convert text and pattern to one case. A pattern is compiled once and then
// immutable, so threads may share it. An unclosed list and a descending range throw failure 93.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tonalith::search {

inline constexpr std::int32_t kInvalidPatternString = 93;

class LikePattern {
 public:
  explicit LikePattern(std::u32string_view pattern);

  struct Verdict {
    bool matches = false;
    /// The number of comparisons of a character with a pattern element, at most n * m + n + m for a text of n and a
    /// pattern of m characters.
    std::uint64_t steps = 0;
  };

  /// Matches the whole text against the whole pattern.
  [[nodiscard]] Verdict Match(std::u32string_view text) const;
  [[nodiscard]] bool Matches(std::u32string_view text) const { return Match(text).matches; }

 private:
  struct Range {
    char32_t first;
    char32_t last;
  };
  struct Element {
    enum class Kind { kCharacter, kAnyRun, kAnyCharacter, kDigit, kInList, kNotInList };
    Kind kind;
    char32_t character = 0;
    /// The ranges of a list: ranges_[begin, end), ascending and disjoint.
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  void AddAnyRun();
  /// Adds the list whose content begins at `at`; returns the index after its closing bracket.
  std::size_t AddList(std::u32string_view pattern, std::size_t at);
  void AddRanges(std::u32string_view content);
  [[nodiscard]] bool Contains(const Element& list, char32_t character) const;
  [[nodiscard]] bool MatchesElement(const Element& element, char32_t character) const;

  std::vector<Element> elements_;
  std::vector<Range> ranges_;
};

}  // namespace tonalith::search
