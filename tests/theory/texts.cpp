// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/texts.h"

#include <gmock/gmock.h>

#include <sstream>

namespace tonalith::theory::tests {
namespace {

constexpr std::string_view kLetterOrder = "CDEFGAB";

}  // namespace

std::vector<std::string> Words(std::string_view text) {
  std::istringstream stream{std::string(text)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::string NamesText(const std::vector<NoteName>& names) {
  std::string text;
  for (const NoteName name : names) {
    text += text.empty() ? "" : " ";
    text += kLetterOrder[static_cast<std::size_t>(name.letter)];
    for (int i = 0; i < name.Alteration(); ++i) text += '#';
    for (int i = 0; i > name.Alteration(); --i) text += 'b';
  }
  return text;
}

NoteName Name(std::string_view text) {
  const std::size_t letter = text.empty() ? std::string_view::npos : kLetterOrder.find(text[0]);
  int alteration = 0;
  bool known = letter != std::string_view::npos;
  for (const char sign : text.substr(known ? 1 : 0)) {
    known = known && (sign == '#' || sign == 'b');
    alteration += sign == '#' ? 1 : -1;
  }
  EXPECT_TRUE(known) << text;
  return {static_cast<Letter>(known ? letter : 0), static_cast<Accidental>(alteration)};
}

int PitchClassOf(NoteName note) {
  static const int kWhiteKeys[] = {0, 2, 4, 5, 7, 9, 11};
  return (kWhiteKeys[static_cast<std::size_t>(note.letter)] + static_cast<int>(note.accidental) + 12) % 12;
}

Formula FormulaOf(std::string_view text) {
  const Parsed<Formula> formula = Formula::Parse(text);
  EXPECT_TRUE(formula) << text;
  return formula ? *formula : Formula();
}

}  // namespace tonalith::theory::tests
