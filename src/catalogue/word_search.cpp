// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "catalogue/word_search.h"

#include <algorithm>

#include "catalogue/folded_text.h"

namespace tonalith::catalogue {
namespace {

bool IsInWord(char32_t character) {
  constexpr char32_t kFirstOfOtherScripts = 0x80;
  return character >= kFirstOfOtherScripts || (character >= U'0' && character <= U'9') ||
         (character >= U'A' && character <= U'Z');
}

bool BeginsWordOf(const std::u32string& name, const std::u32string& word) {
  for (std::size_t at = name.find(word); at != std::u32string::npos; at = name.find(word, at + 1)) {
    if (at == 0 || !IsInWord(name[at - 1]) || !IsInWord(word.front())) return true;
  }
  return false;
}

}  // namespace

WordSearch::WordSearch(std::string_view text) {
  const std::u32string folded = Fold(text).substr(0, kMostCharacters);
  for (std::size_t begin = 0; begin < folded.size();) {
    const std::size_t end = std::min(folded.find(U' ', begin), folded.size());
    if (end > begin) words_.push_back(folded.substr(begin, end - begin));
    begin = end + 1;
  }
}

bool WordSearch::Matches(std::string_view name) {
  if (words_.empty()) return true;
  FoldInto(folded_, name);
  return std::all_of(words_.begin(), words_.end(),
                     [&](const std::u32string& word) { return BeginsWordOf(folded_, word); });
}

bool WordSearch::Matches(const Catalogue& catalogue, std::size_t index) {
  if (Matches(catalogue.NameAt(index))) return true;
  const auto aliases = catalogue.AliasesAt(index);
  return std::any_of(aliases.begin(), aliases.end(), [&](std::string_view alias) { return Matches(alias); });
}

}  // namespace tonalith::catalogue
