// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads each input as a note, notes, a chord symbol, a degree and a formula. Whatever is read has to be written so that
// it is read back as the same, and an error has to point into the text.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "theory/chord_finder.h"
#include "theory/chord_symbol.h"
#include "theory/key.h"
#include "theory/note_parser.h"
#include "theory/spelling.h"

namespace {

using namespace tonalith::theory;

void Require(bool condition) {
  if (!condition) std::abort();
}

/// Whether the text was read; otherwise the error has to be one of the text.
template <typename Value>
bool WasRead(const Parsed<Value>& parsed, std::string_view text) {
  if (parsed) return true;
  Require(parsed.Error().byte <= text.size());
  Require(!Describe(parsed.Error(), text).empty());
  return false;
}

/// Every note is a tonic; its signature has at most seven accidentals, and its other name sounds alike.
void TakeAsKey(NoteName tonic) {
  const Formula major = *Formula::Parse("1 2 3 4 5 6 7");
  const Key key = KeyOf(tonic, major, SetKind::kScale);
  Require(key.tonic == tonic);
  Require(!key.signature || std::abs(*key.signature) <= kMostSignatureAccidentals);
  Require(!key.alternative || key.alternative->PitchClass() == tonic.PitchClass());
}

void ReadNotes(std::string_view text, NoteLanguage language) {
  const MeaningOfB b = MeaningOfBIn(language);
  const Parsed<TypedNote> note = ParseNote(text, b);
  if (WasRead(note, text)) {
    const Parsed<TypedNote> again = ParseNote(Write(note->name, {language, AccidentalSigns::kSyllables}), b);
    Require(again && again->name == note->name);
    TakeAsKey(note->name);
  }
  const Parsed<std::vector<TypedNote>> notes = ParseNotes(text, b);
  if (!WasRead(notes, text)) return;
  std::vector<NoteName> names;
  for (const TypedNote& typed : *notes) names.push_back(typed.name);
  Require(!FindChordNames(Sounding::FromNames(names)).empty());
}

void ReadChord(std::string_view text, NoteLanguage language) {
  const Parsed<ChordSymbol> chord = ParseChordSymbol(text, ChordReadingIn(language));
  if (!WasRead(chord, text)) return;
  Require(Spell(chord->root, chord->formula).size() == chord->formula.Degrees().size());
  const Parsed<ChordSymbol> again = ParseChordSymbol(Write(*chord));
  Require(again && again->Notes() == chord->Notes() && again->root == chord->root);
}

void ReadDegrees(std::string_view text) {
  const Parsed<Degree> degree = Degree::Parse(text);
  if (WasRead(degree, text)) Require(*Degree::Parse(degree->ToText()) == *degree);
  const Parsed<Formula> formula = Formula::Parse(text);
  if (WasRead(formula, text)) Require(*Formula::Parse(formula->ToText()) == *formula);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  for (const NoteLanguage language : {NoteLanguage::kEnglish, NoteLanguage::kGerman, NoteLanguage::kSolfege}) {
    ReadNotes(text, language);
    ReadChord(text, language);
  }
  ReadDegrees(text);
  return 0;
}
