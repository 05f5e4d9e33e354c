// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "core/text.h"

namespace tonalith::help {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr std::size_t kLongestEntity = 10;

using Entity = std::pair<std::string_view, std::uint32_t>;

constexpr std::array kEntities = std::to_array<Entity>(
    {{"amp", '&'},       {"lt", '<'},       {"gt", '>'},       {"quot", '"'},      {"apos", '\''},
     {"nbsp", 0xA0},     {"iexcl", 0xA1},   {"cent", 0xA2},    {"pound", 0xA3},    {"yen", 0xA5},
     {"sect", 0xA7},     {"copy", 0xA9},    {"laquo", 0xAB},   {"shy", 0xAD},      {"reg", 0xAE},
     {"deg", 0xB0},      {"plusmn", 0xB1},  {"sup2", 0xB2},    {"sup3", 0xB3},     {"acute", 0xB4},
     {"micro", 0xB5},    {"para", 0xB6},    {"middot", 0xB7},  {"raquo", 0xBB},    {"frac14", 0xBC},
     {"frac12", 0xBD},   {"frac34", 0xBE},  {"iquest", 0xBF},  {"Agrave", 0xC0},   {"Aacute", 0xC1},
     {"Acirc", 0xC2},    {"Atilde", 0xC3},  {"Auml", 0xC4},    {"Aring", 0xC5},    {"AElig", 0xC6},
     {"Ccedil", 0xC7},   {"Egrave", 0xC8},  {"Eacute", 0xC9},  {"Ecirc", 0xCA},    {"Euml", 0xCB},
     {"Ntilde", 0xD1},   {"Ouml", 0xD6},    {"times", 0xD7},   {"Oslash", 0xD8},   {"Uuml", 0xDC},
     {"szlig", 0xDF},    {"agrave", 0xE0},  {"aacute", 0xE1},  {"acirc", 0xE2},    {"atilde", 0xE3},
     {"auml", 0xE4},     {"aring", 0xE5},   {"aelig", 0xE6},   {"ccedil", 0xE7},   {"egrave", 0xE8},
     {"eacute", 0xE9},   {"ecirc", 0xEA},   {"euml", 0xEB},    {"igrave", 0xEC},   {"iacute", 0xED},
     {"icirc", 0xEE},    {"iuml", 0xEF},    {"ntilde", 0xF1},  {"ograve", 0xF2},   {"oacute", 0xF3},
     {"ocirc", 0xF4},    {"otilde", 0xF5},  {"ouml", 0xF6},    {"divide", 0xF7},   {"oslash", 0xF8},
     {"ugrave", 0xF9},   {"uacute", 0xFA},  {"ucirc", 0xFB},   {"uuml", 0xFC},     {"yuml", 0xFF},
     {"OElig", 0x152},   {"oelig", 0x153},  {"ensp", 0x2002},  {"emsp", 0x2003},   {"thinsp", 0x2009},
     {"ndash", 0x2013},  {"mdash", 0x2014}, {"lsquo", 0x2018}, {"rsquo", 0x2019},  {"sbquo", 0x201A},
     {"ldquo", 0x201C},  {"rdquo", 0x201D}, {"bdquo", 0x201E}, {"dagger", 0x2020}, {"bull", 0x2022},
     {"hellip", 0x2026}, {"prime", 0x2032}, {"euro", 0x20AC},  {"trade", 0x2122},  {"larr", 0x2190},
     {"uarr", 0x2191},   {"rarr", 0x2192},  {"darr", 0x2193},  {"harr", 0x2194},   {"minus", 0x2212},
     {"ne", 0x2260},     {"le", 0x2264},    {"ge", 0x2265},    {"flat", 0x266D},   {"natural", 0x266E},
     {"natur", 0x266E},  {"sharp", 0x266F}});

/// The characters of the bytes 0x80 to 0x9F; all other bytes are equal to their characters.
constexpr std::array<std::uint16_t, 32> kWestern = {0x20AC, 0x0020, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x0020, 0x017D, 0x0020,
                                                    0x0020, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x0020, 0x017E, 0x0178};

bool IsCharacter(std::uint32_t c) { return c >= 0x20 && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

std::uint32_t NumberedCharacter(std::string_view digits) {
  const bool isHex = !digits.empty() && (digits[0] == 'x' || digits[0] == 'X');
  if (isHex) digits.remove_prefix(1);
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, isHex ? 16 : 10);
  if (error != std::errc() || end != digits.data() + digits.size()) return 0;
  if (number >= 0x80 && number < 0xA0) return kWestern[number - 0x80];
  return IsCharacter(number) || number == '\n' || number == '\t' ? number : kReplacement;
}

}  // namespace

void AppendUtf8(std::string& text, std::uint32_t character) {
  if (!IsCharacter(character) && character != '\n' && character != '\t') character = kReplacement;
  core::AppendUtf8(text, character);
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = core::WellFormedLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::uint32_t EntityCharacter(std::string_view name) {
  if (!name.empty() && name[0] == '#') return NumberedCharacter(name.substr(1));
  const auto* const found =
      std::find_if(kEntities.begin(), kEntities.end(), [&](const Entity& entity) { return entity.first == name; });
  return found == kEntities.end() ? 0 : found->second;
}

std::uint32_t WesternCharacter(std::uint8_t byte) { return byte >= 0x80 && byte < 0xA0 ? kWestern[byte - 0x80] : byte; }

std::string ResolveEntities(std::string_view text) {
  std::string resolved;
  resolved.reserve(text.size());
  while (!text.empty()) {
    const std::size_t ampersand = std::min(text.find('&'), text.size());
    resolved += text.substr(0, ampersand);
    text.remove_prefix(ampersand);
    if (text.empty()) break;
    const std::size_t end = text.substr(0, kLongestEntity).find(';');
    const std::uint32_t character = end == std::string_view::npos ? 0 : EntityCharacter(text.substr(1, end - 1));
    if (character == 0) {
      resolved += '&';
      text.remove_prefix(1);
    } else {
      AppendUtf8(resolved, character);
      text.remove_prefix(end + 1);
    }
  }
  return resolved;
}

std::string ToUtf8(std::string_view bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark) bytes.remove_prefix(kByteOrderMark.size());
  const bool isUtf8 = IsUtf8(bytes);
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (byte < 0x20 && c != '\n' && c != '\t' && c != '\r') {
      text += ' ';
    } else if (isUtf8 || byte < 0x80) {
      text += c;
    } else {
      AppendUtf8(text, WesternCharacter(byte));
    }
  }
  return text;
}

}  // namespace tonalith::help
