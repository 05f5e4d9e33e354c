// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/shown_text.h"

#include <vector>

#include "core/text.h"

namespace tonalith::windows {

QString ShownText(std::string_view text, std::size_t longest) {
  constexpr std::size_t kLargestCharacter = 4;
  // Enough bytes for one character too many; the rest is not decoded.
  const std::string_view front = text.substr(0, (longest + 1) * kLargestCharacter);
  const std::vector<std::string_view> characters = core::Characters(front);
  const auto toQString = [](std::string_view part) {
    return QString::fromUtf8(part.data(), static_cast<qsizetype>(part.size()));
  };
  if (characters.size() <= longest) return toQString(front);
  std::size_t bytes = 0;
  for (std::size_t i = 0; i + 1 < longest; ++i) bytes += characters[i].size();
  return toQString(front.substr(0, bytes)) + QChar(0x2026);
}

}  // namespace tonalith::windows
