// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/step_words.h"

#include "core/text.h"

namespace tonalith::core {
namespace {

std::string StepWord(std::string_view character) {
  if (character.size() != 1 || character[0] < '0' || character[0] > '9') return {};
  if (character == "2") return "T";
  if (character == "1") return "S";
  const int semitones = character[0] - '0';
  std::string word("T");
  word.append(std::to_string(semitones / 2));
  if (semitones % 2 != 0) word.append(".5");
  return word;
}

}  // namespace

std::string CNotesToTones(std::string_view pattern, std::ptrdiff_t position) {
  const auto characters = Characters(pattern);
  if (position < 1 || position > std::ssize(characters)) return {};
  return StepWord(characters[static_cast<std::size_t>(position - 1)]);
}

std::string StepLine(std::string_view pattern) {
  std::string line;
  for (const std::string_view character : Characters(pattern)) {
    const std::string word = StepWord(character);
    if (!word.empty()) line.append("  ").append(word);
  }
  return line;
}

}  // namespace tonalith::core
