// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/note_style.h"

#include <array>
#include <string_view>

#include "theory/accidental_text.h"

namespace tonalith::theory {
namespace {

using LetterNames = std::array<std::string_view, kLetters>;

constexpr LetterNames kEnglishNames = {"C", "D", "E", "F", "G", "A", "B"};
constexpr LetterNames kGermanNames = {"C", "D", "E", "F", "G", "A", "H"};
constexpr LetterNames kSolfegeNames = {"Do", "R\u00E9", "Mi", "Fa", "Sol", "La", "Si"};
constexpr LetterNames kSolfegeAsciiNames = {"Do", "Re", "Mi", "Fa", "Sol", "La", "Si"};

const LetterNames& NamesOf(NoteLanguage language) {
  switch (language) {
    case NoteLanguage::kGerman:
    case NoteLanguage::kGermanBb:
      return kGermanNames;
    case NoteLanguage::kSolfege:
      return kSolfegeNames;
    case NoteLanguage::kSolfegeAscii:
      return kSolfegeAsciiNames;
    case NoteLanguage::kEnglish:
      break;
  }
  return kEnglishNames;
}

std::string_view UnicodeAccidentals(Accidental accidental) {
  switch (accidental) {
    case Accidental::kDoubleFlat:
      return "\U0001D12B";
    case Accidental::kFlat:
      return "\u266D";
    case Accidental::kSharp:
      return "\u266F";
    case Accidental::kDoubleSharp:
      return "\U0001D12A";
    case Accidental::kNatural:
      break;
  }
  return "";
}

/// "is" and "es" for each accidental; E and A lose the first e: Es, Asas is written Ases.
std::string Syllables(NoteName note) {
  const bool vowel = note.letter == Letter::kE || note.letter == Letter::kA;
  switch (note.accidental) {
    case Accidental::kDoubleFlat:
      return vowel ? "ses" : "eses";
    case Accidental::kFlat:
      return vowel ? "s" : "es";
    case Accidental::kSharp:
      return "is";
    case Accidental::kDoubleSharp:
      return "isis";
    case Accidental::kNatural:
      break;
  }
  return "";
}

bool IsGerman(NoteLanguage language) {
  return language == NoteLanguage::kGerman || language == NoteLanguage::kGermanBb;
}

}  // namespace

std::string Write(NoteName note, NoteStyle style) {
  std::string text(NamesOf(style.language)[static_cast<std::size_t>(note.letter)]);
  if (IsGerman(style.language) && note.letter == Letter::kB && note.Alteration() < 0) {
    if (style.language == NoteLanguage::kGerman && note.accidental == Accidental::kFlat) return "B";
    if (style.language == NoteLanguage::kGermanBb) text = "B";
  }
  if (style.signs == AccidentalSigns::kUnicode) return text.append(UnicodeAccidentals(note.accidental));
  if (style.signs == AccidentalSigns::kSyllables && IsGerman(style.language)) return text + Syllables(note);
  return text + AsciiAccidentals(note.Alteration());
}

std::string Write(const SpelledNote& note, NoteStyle style) {
  return Write(note.name, style) + std::to_string(note.octave);
}

}  // namespace tonalith::theory
