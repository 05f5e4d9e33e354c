// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/like_matcher.h"

#include <algorithm>

#include "core/failure.h"

namespace tonalith::search {
namespace {

core::Failure InvalidPatternString() { return {kInvalidPatternString, "Invalid pattern string"}; }

}  // namespace

LikePattern::LikePattern(std::u32string_view pattern) {
  using Kind = Place::Kind;
  places_.reserve(pattern.size());
  for (std::size_t at = 0; at < pattern.size();) {
    const char32_t character = pattern[at++];
    switch (character) {
      case U'*':
        AddAnyRun();
        break;
      case U'?':
        places_.push_back({Kind::kAnyCharacter});
        break;
      case U'#':
        places_.push_back({Kind::kDigit});
        break;
      case U'[':
        at = AddList(pattern, at);
        break;
      default:
        places_.push_back({Kind::kCharacter, character});
    }
  }
}

void LikePattern::AddAnyRun() {
  if (places_.empty() || places_.back().kind != Place::Kind::kAnyRun) places_.push_back({Place::Kind::kAnyRun});
}

std::size_t LikePattern::AddList(std::u32string_view pattern, std::size_t at) {
  const std::size_t close = pattern.find(U']', at);
  if (close == std::u32string_view::npos) throw InvalidPatternString();
  std::u32string_view content = pattern.substr(at, close - at);
  if (content.empty()) return close + 1;
  const bool isNegative = content.front() == U'!' && content.size() > 1;
  if (isNegative) content.remove_prefix(1);
  Place place{isNegative ? Place::Kind::kNotInList : Place::Kind::kInList};
  place.begin = ranges_.size();
  AddRanges(content);
  place.end = ranges_.size();
  places_.push_back(place);
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

bool LikePattern::IsIn(const Place& list, char32_t character) const {
  const auto begin = ranges_.begin() + static_cast<std::ptrdiff_t>(list.begin);
  const auto end = ranges_.begin() + static_cast<std::ptrdiff_t>(list.end);
  const auto above =
      std::upper_bound(begin, end, character, [](char32_t wanted, const Range& range) { return wanted < range.first; });
  return above != begin && character <= (above - 1)->last;
}

bool LikePattern::Fits(const Place& place, char32_t character) const {
  switch (place.kind) {
    case Place::Kind::kCharacter:
      return place.character == character;
    case Place::Kind::kAnyCharacter:
      return true;
    case Place::Kind::kDigit:
      return character >= U'0' && character <= U'9';
    case Place::Kind::kInList:
      return IsIn(place, character);
    case Place::Kind::kNotInList:
      return !IsIn(place, character);
    case Place::Kind::kAnyRun:
      break;
  }
  return false;
}

// When a character does not fit, the run before it takes one more. Only the latest run ever has to: whatever an earlier
// one could still take, the latest can take as well.
LikePattern::Verdict LikePattern::Match(std::u32string_view text) const {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  Verdict verdict;
  std::size_t place = 0;
  std::size_t afterRun = kNone;
  std::size_t runEnd = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    ++verdict.steps;
    if (place < places_.size() && places_[place].kind == Place::Kind::kAnyRun) {
      afterRun = ++place;
      runEnd = at;
      if (place == places_.size()) break;
    } else if (place == afterRun && places_[place].kind == Place::Kind::kCharacter) {
      // The run takes everything up to the next character that can follow it.
      const std::size_t found = std::min(text.find(places_[place].character, at), text.size());
      verdict.steps += found - at;
      at = runEnd = found;
      if (found == text.size()) break;
      ++place;
      ++at;
    } else if (place < places_.size() && Fits(places_[place], text[at])) {
      ++place;
      ++at;
    } else if (afterRun != kNone) {
      place = afterRun;
      at = ++runEnd;
    } else {
      return verdict;
    }
  }
  while (place < places_.size() && places_[place].kind == Place::Kind::kAnyRun) ++place;
  verdict.matches = place == places_.size();
  return verdict;
}

}  // namespace tonalith::search
