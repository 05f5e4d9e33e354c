// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How notes are written: the language of their names and the signs of their accidentals. A style is a value, so each
// view and document can have its own.

#pragma once

#include <cstdint>
#include <string>

#include "theory/note_name.h"

namespace tonalith::theory {

enum class NoteLanguage : std::uint8_t {
  kEnglish,
  /// B natural is H, B flat is B.
  kGerman,
  /// B natural is H, B flat is Bb.
  kGermanBb,
  /// Fixed do, with Ré.
  kSolfege,
  /// Fixed do in ASCII, with Re.
  kSolfegeAscii,
};

enum class AccidentalSigns : std::uint8_t {
  /// # b ## bb
  kAscii,
  kUnicode,
  /// Cis, Es, Heses: for the German names. Other languages write ASCII signs.
  kSyllables,
};

struct NoteStyle {
  NoteLanguage language = NoteLanguage::kEnglish;
  AccidentalSigns signs = AccidentalSigns::kAscii;

  bool operator==(const NoteStyle&) const = default;
};

/// UTF-8, in the default style ASCII: "F#", "Bb", "C##". Every text is read back by ParseNote as the same note, if the
/// meaning of B belongs to the language.
[[nodiscard]] std::string Write(NoteName note, NoteStyle style = {});
/// The same with the octave: "F#4".
[[nodiscard]] std::string Write(const SpelledNote& note, NoteStyle style = {});

}  // namespace tonalith::theory
