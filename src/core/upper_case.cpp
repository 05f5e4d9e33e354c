// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/upper_case.h"

#include <algorithm>
#include <locale>
#include <stdexcept>

#include "core/text.h"

namespace tonalith::core {
namespace {

constexpr char32_t kHighestAscii = 0x7F;
constexpr char32_t kLastCharacter = 0x10FFFF;
static_assert(sizeof(wchar_t) == sizeof(char32_t), "each code point fits in one wchar_t");
/// Invalid bytes map to surrogates, which valid UTF-8 never contains.
constexpr char32_t kStrayBytes = 0xDC00;

char32_t UpperAscii(char32_t character) {
  return character >= U'a' && character <= U'z' ? character - U'a' + U'A' : character;
}

/// The Unicode tables of the C library; independent of the locale of the user. Without them only ASCII letters are
/// converted.
const std::ctype<wchar_t>& UnicodeLetters() {
  static const std::locale locale = [] {
    try {
      return std::locale("C.UTF-8");
    } catch (const std::runtime_error&) {
      return std::locale::classic();
    }
  }();
  return std::use_facet<std::ctype<wchar_t>>(locale);
}

/// Converts to lower case first: some upper-case letters have two lower-case forms, and some lower-case letters do not
/// map back to their upper-case form.
char32_t Upper(char32_t character, const std::ctype<wchar_t>& letters) {
  if (character <= kHighestAscii) return UpperAscii(character);
  if (character > kLastCharacter) return character;
  return static_cast<char32_t>(letters.toupper(letters.tolower(static_cast<wchar_t>(character))));
}

char32_t Decode(std::string_view character) {
  const auto byte = [character](std::size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(character[i]));
  };
  if (character.size() == 1) return byte(0) <= kHighestAscii ? byte(0) : kStrayBytes + byte(0);
  char32_t decoded = byte(0) & (0x7FU >> character.size());
  for (std::size_t i = 1; i < character.size(); ++i) decoded = (decoded << 6U) | (byte(i) & 0x3FU);
  return decoded;
}

}  // namespace

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) <= kHighestAscii; });
}

void UpperCaseInto(std::u32string& upper, std::string_view text) {
  if (IsAscii(text)) {
    upper.resize(text.size());
    std::transform(text.begin(), text.end(), upper.begin(),
                   [](char c) { return UpperAscii(static_cast<unsigned char>(c)); });
    return;
  }
  upper.clear();
  const std::ctype<wchar_t>& letters = UnicodeLetters();
  for (const std::string_view character : Characters(text)) upper.push_back(Upper(Decode(character), letters));
}

std::u32string UpperCase(std::string_view text) {
  std::u32string upper;
  UpperCaseInto(upper, text);
  return upper;
}

}  // namespace tonalith::core
