// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/text.h"

namespace tonalith::core {
namespace {

std::size_t SequenceLength(unsigned char lead) {
  if (lead >= 0xF0 && lead < 0xF8) return 4;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xC0 && lead < 0xE0) return 2;
  return 1;
}

/// The byte length of the character that starts at `at`; 1 for a byte that is no UTF-8.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
  const std::size_t length = SequenceLength(static_cast<unsigned char>(text[at]));
  if (at + length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[at + i]) & 0xC0U) != 0x80U) return 1;
  }
  return length;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> Characters(std::string_view text) {
  std::vector<std::string_view> characters;
  characters.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = CharacterLength(text, at);
    characters.push_back(text.substr(at, length));
    at += length;
  }
  return characters;
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterLength(text, at)) ++count;
  return count;
}

}  // namespace tonalith::core
