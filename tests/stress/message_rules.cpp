// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/message_rules.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "stress/finding.h"
#include "stress/visible_state.h"

namespace tonalith::stress {
namespace {

constexpr std::array<std::string_view, 16> kCompleteTexts = {
    message_text::kKeep,
    message_text::kDelete,
    "A scale or chord requires more than one note.",
    "The scale needs a name.",
    "There is a scale of this name already.",
    "The interval pattern may hold digits and blanks only.",
    "There is no scale type of this number.",
    "The sort order number has to be a whole number.",
    "Subscript out of range",
    "Type mismatch",
    "9 Subscript out of range",
    "13 Type mismatch",
    "9: Subscript out of range",
    "13: Type mismatch",
    "Invalid pattern string",
    "No matches found.",
};

constexpr std::array<std::string_view, 4> kPrefixes = {
    "No matches found for '",
    "This link leads out of the help. Do you want to open it?\n",
    "This link leads to something that the help does not open:\n",
    "The address could not be opened:\n",
};

bool IsAboutPack(const std::string& text) {
  const bool isBroken = text.find(std::string("/") + kBrokenPack) != std::string::npos;
  if (text.starts_with("Imported data pack: \n")) return !isBroken;
  return text.starts_with("Error importing ") && isBroken;
}

}  // namespace

void CheckMessage(const std::string& text) {
  const bool isKnown =
      text.empty() || IsAboutPack(text) ||
      std::find(kCompleteTexts.begin(), kCompleteTexts.end(), text) != kCompleteTexts.end() ||
      std::any_of(kPrefixes.begin(), kPrefixes.end(), [&](auto begin) { return text.starts_with(begin); });
  Require(isKnown, "a message without a reason", text);
}

}  // namespace tonalith::stress
