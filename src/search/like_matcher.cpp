// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/like_matcher.h"

#include <algorithm>

#include "core/failure.h"
#include "search/messages.h"

namespace tonalith::search {
namespace {

core::Failure InvalidPatternString() { return {kInvalidPatternString, MessageId::kInvalidPattern}; }

}  // namespace

LikePattern::LikePattern(std::u32string_view pattern) {
  using Kind = Element::Kind;
  elements_.reserve(pattern.size());
  for (std::size_t at = 0; at < pattern.size();) {
    const char32_t character = pattern[at++];
    switch (character) {
      case U'*':
        AddAnyRun();
        break;
      case U'?':
        elements_.push_back({Kind::kAnyCharacter});
        break;
      case U'#':
        elements_.push_back({Kind::kDigit});
        break;
      case U'[':
        at = AddList(pattern, at);
        break;
      default:
        elements_.push_back({Kind::kCharacter, character});
    }
  }
}

void LikePattern::AddAnyRun() {
  if (elements_.empty() || elements_.back().kind != Element::Kind::kAnyRun)
    elements_.push_back({Element::Kind::kAnyRun});
}

std::size_t LikePattern::AddList(std::u32string_view pattern, std::size_t at) {
  const std::size_t close = pattern.find(U']', at);
  if (close == std::u32string_view::npos) throw InvalidPatternString();
  std::u32string_view content = pattern.substr(at, close - at);
  if (content.empty()) return close + 1;
  const bool isNegative = content.front() == U'!' && content.size() > 1;
  if (isNegative) content.remove_prefix(1);
  Element element{isNegative ? Element::Kind::kNotInList : Element::Kind::kInList};
  element.begin = ranges_.size();
  AddRanges(content);
  element.end = ranges_.size();
  elements_.push_back(element);
  return close + 1;
}

void LikePattern::AddRanges(std::u32string_view content) {
  std::vector<Range> found;
  for (std::size_t at = 0; at < content.size();) {
    const bool isRange = at + 2 < content.size() && content[at + 1] == U'-';
    const Range range = {content[at], isRange ? content[at + 2] : content[at]};
    if (range.last < range.first) throw InvalidPatternString();
    found.push_back(range);
    at += isRange ? 3 : 1;
  }
  std::sort(found.begin(), found.end(), [](const Range& a, const Range& b) { return a.first < b.first; });
  const std::size_t begin = ranges_.size();
  for (const Range& range : found) {
    if (ranges_.size() > begin && range.first <= ranges_.back().last) {
      ranges_.back().last = std::max(ranges_.back().last, range.last);
    } else {
      ranges_.push_back(range);
    }
  }
}

bool LikePattern::Contains(const Element& list, char32_t character) const {
  const auto begin = ranges_.begin() + static_cast<std::ptrdiff_t>(list.begin);
  const auto end = ranges_.begin() + static_cast<std::ptrdiff_t>(list.end);
  const auto above =
      std::upper_bound(begin, end, character, [](char32_t wanted, const Range& range) { return wanted < range.first; });
  return above != begin && character <= (above - 1)->last;
}

bool LikePattern::MatchesElement(const Element& element, char32_t character) const {
  switch (element.kind) {
    case Element::Kind::kCharacter:
      return element.character == character;
    case Element::Kind::kAnyCharacter:
      return true;
    case Element::Kind::kDigit:
      return character >= U'0' && character <= U'9';
    case Element::Kind::kInList:
      return Contains(element, character);
    case Element::Kind::kNotInList:
      return !Contains(element, character);
    case Element::Kind::kAnyRun:
      break;
  }
  return false;
}

// Backtracking: if a character does not match, the latest run takes one more character. Earlier runs need no
// backtracking, because the latest run can take whatever they could.
LikePattern::Verdict LikePattern::Match(std::u32string_view text) const {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  Verdict verdict;
  std::size_t element = 0;
  std::size_t afterRun = kNone;
  std::size_t runEnd = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    ++verdict.steps;
    if (element < elements_.size() && elements_[element].kind == Element::Kind::kAnyRun) {
      afterRun = ++element;
      runEnd = at;
      if (element == elements_.size()) break;
    } else if (element == afterRun && elements_[element].kind == Element::Kind::kCharacter) {
      // The run takes all characters before the next occurrence of the character that follows it.
      const std::size_t found = std::min(text.find(elements_[element].character, at), text.size());
      verdict.steps += found - at;
      at = runEnd = found;
      if (found == text.size()) break;
      ++element;
      ++at;
    } else if (element < elements_.size() && MatchesElement(elements_[element], text[at])) {
      ++element;
      ++at;
    } else if (afterRun != kNone) {
      element = afterRun;
      at = ++runEnd;
    } else {
      return verdict;
    }
  }
  while (element < elements_.size() && elements_[element].kind == Element::Kind::kAnyRun) ++element;
  verdict.matches = element == elements_.size();
  return verdict;
}

}  // namespace tonalith::search
