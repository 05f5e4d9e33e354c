// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/parsed.h"

#include <algorithm>

namespace tonalith::theory {

std::string_view Text(ParseReason reason) {
  switch (reason) {
    case ParseReason::kEmpty:
      return "Nothing is written here";
    case ParseReason::kTooLong:
      return "The text is too long";
    case ParseReason::kTooMany:
      return "There are too many items";
    case ParseReason::kUnknownNote:
      return "No note has this name";
    case ParseReason::kTooManyAccidentals:
      return "A note has at most two sharps or two flats";
    case ParseReason::kOctaveOutOfRange:
      return "The octave is out of range";
    case ParseReason::kUnknownDegree:
      return "This is not a degree, such as 1, b3 or #11";
    case ParseReason::kDegreeTwice:
      return "This degree sounds like an earlier one";
    case ParseReason::kUnknownChord:
      return "No chord symbol continues like this";
    case ParseReason::kUnknownBass:
      return "A bass note has to follow the slash";
    case ParseReason::kNothingToOmit:
      return "The chord does not contain the degree to be omitted";
    case ParseReason::kTextAfterNote:
      return "There is more text after the note";
  }
  return "";
}

std::size_t CharacterNumber(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, std::min(byte, text.size()));
  // In UTF-8, bytes with the highest bits 10 continue a character.
  return 1 + static_cast<std::size_t>(std::ranges::count_if(
                 before, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string Describe(const ParseError& error, std::string_view text) {
  return "Character " + std::to_string(CharacterNumber(text, error.byte)) + ": " + std::string(Text(error.reason));
}

}  // namespace tonalith::theory
