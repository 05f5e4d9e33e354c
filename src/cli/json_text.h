// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The answers in JSON, as docs/cli.md describes them: fields in a fixed order, notes in English, all characters in
// ASCII (others are escaped). Bytes that are not UTF-8 become U+FFFD. Ends with a line break.

#pragma once

#include <string>
#include <vector>

#include "cli/answers.h"

namespace tonalith::cli {

[[nodiscard]] std::string JsonText(const std::vector<ListedEntry>& entries);
[[nodiscard]] std::string JsonText(const ShownMusic& music);
[[nodiscard]] std::string JsonText(const NamedNotes& named);
[[nodiscard]] std::string JsonText(const ShownShapes& shapes);
[[nodiscard]] std::string JsonText(const ShownPositions& positions);
[[nodiscard]] std::string JsonText(const std::vector<theory::ScaleChord>& chords);
[[nodiscard]] std::string JsonText(const std::vector<instrument::CatalogueEntry>& instruments);

}  // namespace tonalith::cli
