// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_text/displayed_text.h"

#include <algorithm>
#include <cctype>

namespace tonalith::help_text {
namespace {

bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

bool HasTwoLetters(std::string_view text) {
  return std::count_if(text.begin(), text.end(),
                       [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }) >= 2;
}

}  // namespace

std::string AsDisplayed(std::string_view text) {
  std::string read;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (IsSpace(c)) {
      if (!read.empty() && read.back() != ' ') read += ' ';
    } else if (c != '&' || (at + 1 < text.size() && text[at + 1] == ' ')) {
      read += c;
    }
  }
  if (read.ends_with(' ')) read.pop_back();
  return read;
}

std::vector<std::string> PiecesOf(std::string_view text) {
  std::vector<std::string> pieces;
  std::string piece;
  const auto finish = [&] {
    const std::string read = AsDisplayed(piece);
    if (HasTwoLetters(read)) pieces.push_back(read);
    piece.clear();
  };
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isPlace = text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9';
    if (isPlace || text[at] == '\n') {
      finish();
      at += isPlace ? 1 : 0;
    } else {
      piece += text[at];
    }
  }
  finish();
  return pieces;
}

}  // namespace tonalith::help_text
