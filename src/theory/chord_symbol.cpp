// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/chord_symbol.h"

#include <algorithm>

#include "theory/accidental_text.h"

namespace tonalith::theory {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// A text and its place in the whole text.
struct Piece {
  std::string_view text;
  std::size_t byte = 0;
};

Piece Trimmed(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
  const std::size_t last = text.find_last_not_of(kBlanks);
  return {text.substr(first, last == std::string_view::npos ? 0 : last + 1 - first), first};
}

/// The root and the suffix of `text`: of all ways to read a root, the first that leaves a valid suffix, otherwise the
/// error of the one that gets furthest.
Parsed<ChordSymbol> ParseWithoutBass(std::string_view text, ChordReading reading) {
  std::vector<NotePrefix> roots = NotePrefixes(text, reading.b);
  if (roots.empty()) return ParseNote(text.substr(0, kMostNoteBytes), reading.b).Error();
  if (reading.solfegeFirst) std::ranges::stable_sort(roots, std::greater(), &NotePrefix::bytes);
  ParseError furthest{ParseReason::kUnknownNote, 0};
  for (const NotePrefix& root : roots) {
    const Parsed<Formula> formula = ParseChordSuffix(text.substr(root.bytes));
    if (formula) return ChordSymbol{root.name, *formula, std::nullopt};
    const ParseError error{formula.Error().reason, root.bytes + formula.Error().byte};
    if (error.byte >= furthest.byte) furthest = error;
  }
  return furthest;
}

}  // namespace

PitchClassSet ChordSymbol::Notes() const {
  PitchClassSet notes = formula.Set().Transposed(root.PitchClass().Semitones());
  if (bass) notes.Add(bass->PitchClass());
  return notes;
}

ChordReading ChordReadingIn(NoteLanguage language) {
  const bool solfege = language == NoteLanguage::kSolfege || language == NoteLanguage::kSolfegeAscii;
  return {MeaningOfBIn(language), solfege};
}

Parsed<ChordSymbol> ParseChordSymbol(std::string_view text, ChordReading reading) {
  if (text.size() > ChordSymbol::kMostBytes) return {ParseReason::kTooLong, ChordSymbol::kMostBytes};
  const Piece whole = Trimmed(text);
  if (whole.text.empty()) return {ParseReason::kEmpty, 0};
  const std::size_t slash = whole.text.rfind('/');
  if (slash != std::string_view::npos) {
    const Parsed<TypedNote> bass = ParseNote(whole.text.substr(slash + 1), reading.b);
    if (bass && !bass->octave) {
      const Parsed<ChordSymbol> chord = ParseWithoutBass(Trimmed(whole.text.substr(0, slash)).text, reading);
      if (!chord) return {chord.Error().reason, whole.byte + chord.Error().byte};
      ChordSymbol result = *chord;
      if (bass->name != result.root) result.bass = bass->name;
      return result;
    }
  }
  Parsed<ChordSymbol> chord = ParseWithoutBass(whole.text, reading);
  if (chord) return chord;
  if (slash != std::string_view::npos && chord.Error().byte > slash) {
    return {ParseReason::kUnknownBass, whole.byte + slash + 1};
  }
  return {chord.Error().reason, whole.byte + chord.Error().byte};
}

std::string StyledSuffix(std::string_view suffix, NoteStyle style) {
  if (style.signs != AccidentalSigns::kUnicode) return std::string(suffix);
  std::string text;
  for (const char c : suffix) {
    // No word of a suffix contains a b.
    if (c == 'b') {
      text += "\u266D";
    } else if (c == '#') {
      text += "\u266F";
    } else {
      text += c;
    }
  }
  return text;
}

std::string Write(const ChordSymbol& chord, NoteStyle style) {
  std::string text = Write(chord.root, style) + StyledSuffix(WriteChordSuffix(chord.formula), style);
  if (chord.bass) text += "/" + Write(*chord.bass, style);
  return text;
}

}  // namespace tonalith::theory
