// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads typed notes in every supported style: letters in either case, H, is and es, do re mi, the signs # b x and those
// of Unicode, the words sharp and flat. Invalid UTF-8 and other scripts are unknown notes, never a failure.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "theory/note_name.h"
#include "theory/note_style.h"
#include "theory/parsed.h"

namespace tonalith::theory {

/// What a B without an accidental means. A B with one is always counted from B natural, and H is always B natural.
enum class MeaningOfB : std::uint8_t { kBNatural, kBFlat };

/// The meaning of B in texts of a language.
[[nodiscard]] MeaningOfB MeaningOfBIn(NoteLanguage language);

struct TypedNote {
  NoteName name;
  /// -1 to 9, if the text has one.
  std::optional<int> octave;

  bool operator==(const TypedNote&) const = default;
};

/// The longest text of one note: "double sharp" with blanks fits.
inline constexpr std::size_t kMostNoteBytes = 40;
/// The longest list: more notes than any instrument has strings.
inline constexpr std::size_t kMostNotes = 48;
inline constexpr std::size_t kMostNoteListBytes = 1000;

/// One note with or without an octave, and blanks around it: "F#", "Gb3", "as", "Sol#", "B flat".
[[nodiscard]] Parsed<TypedNote> ParseNote(std::string_view text, MeaningOfB b = MeaningOfB::kBNatural);

/// Notes separated by blanks, commas, semicolons or hyphens: "C E G", "do, mi, sol", "C sharp E".
[[nodiscard]] Parsed<std::vector<TypedNote>> ParseNotes(std::string_view text, MeaningOfB b = MeaningOfB::kBNatural);

/// One way to read the beginning of a text as a note.
struct NotePrefix {
  NoteName name;
  std::size_t bytes = 0;

  bool operator==(const NotePrefix&) const = default;
};

/// All ways to read the beginning of a text, letters before syllables before words: "Esus4" begins with E or with Es.
/// Empty if the text begins with no note.
[[nodiscard]] std::vector<NotePrefix> NotePrefixes(std::string_view text, MeaningOfB b);

}  // namespace tonalith::theory
