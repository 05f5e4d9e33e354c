// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/text.h"

#include <algorithm>
#include <cstdint>

namespace tonalith::core {
namespace {

std::size_t SequenceLength(unsigned char lead) {
  if (lead >= 0xF0 && lead < 0xF8) return 4;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xC0 && lead < 0xE0) return 2;
  return 1;
}

/// The byte length of the character that starts at `at`; 1 for a byte that is not UTF-8.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
  const std::size_t length = SequenceLength(static_cast<unsigned char>(text[at]));
  if (at + length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[at + i]) & 0xC0U) != 0x80U) return 1;
  }
  return length;
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

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

bool EqualWithoutCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lower(x) == Lower(y); });
}

std::size_t WellFormedLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = SequenceLength(first);
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  // Overlong encodings, surrogates, and code points above U+10FFFF.
  const std::uint8_t second = byte(1);
  if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F)) return 0;
  return (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F) ? 0 : length;
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto put = [&text](char32_t byte) { text += static_cast<char>(static_cast<std::uint8_t>(byte)); };
  const auto follow = [&](unsigned shift) { put(0x80U | ((character >> shift) & 0x3FU)); };
  if (character < 0x80) return put(character);
  if (character < 0x800) {
    put(0xC0U | (character >> 6U));
    return follow(0);
  }
  if (character < 0x10000) {
    put(0xE0U | (character >> 12U));
  } else {
    put(0xF0U | (character >> 18U));
    follow(12);
  }
  follow(6);
  follow(0);
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterLength(text, at)) ++count;
  return count;
}

}  // namespace tonalith::core
