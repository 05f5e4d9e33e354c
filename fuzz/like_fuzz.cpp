// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Holds the like matcher against the slow one. The first line of an input is the pattern, what follows its line feed is
// the text, each byte one character. Long inputs only have to end, within the promised number of steps; short ones have
// to agree.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/failure.h"
#include "search/like_matcher.h"
#include "search/slow_like.h"

namespace {

/// Beyond these the slow matcher would take too long.
constexpr std::size_t kLongestPattern = 12;
constexpr std::size_t kLongestText = 12;

void Require(bool condition) {
  if (!condition) std::abort();
}

void Compare(const std::u32string& pattern, const std::u32string& text) {
  using tonalith::search::LikePattern;
  try {
    const LikePattern::Verdict verdict = LikePattern(pattern).Match(text);
    Require(tonalith::search::IsWellFormed(pattern));
    Require(verdict.steps <= pattern.size() * text.size() + pattern.size() + text.size());
    if (pattern.size() > kLongestPattern || text.size() > kLongestText) return;
    Require(verdict.matches == tonalith::search::SlowLike(text, pattern));
  } catch (const tonalith::core::Failure& failure) {
    Require(failure.Number() == tonalith::search::kInvalidPatternString);
    Require(!tonalith::search::IsWellFormed(pattern));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::u32string characters(data, data + size);
  const std::size_t lineEnd = std::min(characters.find(U'\n'), size);
  Compare(characters.substr(0, lineEnd), characters.substr(std::min(lineEnd + 1, size)));
  return 0;
}
