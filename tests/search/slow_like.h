// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A reference implementation of the like operator by exhaustive recursion. For short texts and patterns only. Pure
// functions.

#pragma once

#include <string_view>

namespace tonalith::search {

/// Whether all lists are closed and no range is descending.
inline bool IsWellFormed(std::u32string_view pattern) {
  while (!pattern.empty()) {
    if (pattern.front() != U'[') {
      pattern.remove_prefix(1);
      continue;
    }
    const auto close = pattern.find(U']');
    if (close == std::u32string_view::npos) return false;
    std::u32string_view list = pattern.substr(1, close - 1);
    if (list.size() > 1 && list.front() == U'!') list.remove_prefix(1);
    while (list.size() > 2) {
      const bool isRange = list[1] == U'-';
      if (isRange && list[0] > list[2]) return false;
      list.remove_prefix(isRange ? 3 : 1);
    }
    pattern.remove_prefix(close + 1);
  }
  return true;
}

inline bool SlowIsIn(std::u32string_view list, char32_t character) {
  if (list.empty()) return false;
  if (list.size() > 2 && list[1] == U'-') {
    return (character >= list[0] && character <= list[2]) || SlowIsIn(list.substr(3), character);
  }
  return character == list[0] || SlowIsIn(list.substr(1), character);
}

/// Requires a well-formed pattern.
inline bool SlowLike(std::u32string_view text, std::u32string_view pattern) {
  if (pattern.empty()) return text.empty();
  const char32_t head = pattern.front();
  std::u32string_view rest = pattern.substr(1);
  if (head == U'*') return SlowLike(text, rest) || (!text.empty() && SlowLike(text.substr(1), pattern));
  std::u32string_view list;
  if (head == U'[') {
    list = rest.substr(0, rest.find(U']'));
    rest.remove_prefix(list.size() + 1);
    if (list.empty()) return SlowLike(text, rest);
  }
  if (text.empty()) return false;
  const char32_t character = text.front();
  bool fits = character == head;
  if (head == U'?') fits = true;
  if (head == U'#') fits = std::u32string_view(U"0123456789").find(character) != std::u32string_view::npos;
  if (head == U'[') {
    const bool isNegative = list.size() > 1 && list.front() == U'!';
    fits = isNegative ? !SlowIsIn(list.substr(1), character) : SlowIsIn(list, character);
  }
  return fits && SlowLike(text.substr(1), rest);
}

}  // namespace tonalith::search
