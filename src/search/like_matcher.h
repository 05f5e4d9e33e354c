// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The like operator: `*` any run of characters, `?` any one, `#` one digit 0 to 9, `[list]` one character of the list,
// `[!list]` one that is not in it; everything else stands for itself, `]` outside a list too. In a list a hyphen
// between two characters makes a range by character code; at either end, or behind a range, it stands for itself, as do
// `[`, `*`, `?`, `#`, and `!` anywhere but in front. `[]` is an empty text and `[!]` is the character `!`. Case counts:
// who wants to ignore it brings both sides to one case first. A pattern is compiled once and then only read, so that
// several threads may share it. A list that is not closed and a range that runs downwards are failure 93.

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
    /// How many times a character was held against a place of the pattern: at most the product of the lengths of text
    /// and pattern, and their sum on top.
    std::uint64_t steps = 0;
  };

  /// Holds the whole of `text` against the whole pattern.
  [[nodiscard]] Verdict Match(std::u32string_view text) const;
  [[nodiscard]] bool Matches(std::u32string_view text) const { return Match(text).matches; }

 private:
  struct Range {
    char32_t first;
    char32_t last;
  };
  struct Place {
    enum class Kind { kCharacter, kAnyRun, kAnyCharacter, kDigit, kInList, kNotInList };
    Kind kind;
    char32_t character = 0;
    /// The ranges of a list: those of ranges_ from `begin` up to `end`, ascending and apart from each other.
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  void AddAnyRun();
  /// Takes the list that begins behind the bracket at `at`; returns the index behind its closing bracket.
  std::size_t AddList(std::u32string_view pattern, std::size_t at);
  void AddRanges(std::u32string_view content);
  [[nodiscard]] bool IsIn(const Place& list, char32_t character) const;
  [[nodiscard]] bool Fits(const Place& place, char32_t character) const;

  std::vector<Place> places_;
  std::vector<Range> ranges_;
};

}  // namespace tonalith::search
