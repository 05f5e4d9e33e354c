// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The answers for people: lines of UTF-8, in aligned columns, with the notes in a style. No other program should read
// them. Ends with a line break.

#pragma once

#include <string>
#include <vector>

#include "cli/answers.h"
#include "theory/note_style.h"

namespace tonalith::cli {

[[nodiscard]] std::string PlainText(const std::vector<ListedEntry>& entries, theory::NoteStyle style);
[[nodiscard]] std::string PlainText(const ShownMusic& music, theory::NoteStyle style);
[[nodiscard]] std::string PlainText(const NamedNotes& named, theory::NoteStyle style);
[[nodiscard]] std::string PlainText(const ShownShapes& shapes, theory::NoteStyle style);
[[nodiscard]] std::string PlainText(const ShownPositions& positions, theory::NoteStyle style);
[[nodiscard]] std::string PlainText(const std::vector<theory::ScaleChord>& chords, theory::NoteStyle style);
[[nodiscard]] std::string PlainText(const std::vector<instrument::CatalogueEntry>& instruments,
                                    theory::NoteStyle style);

}  // namespace tonalith::cli
