// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/scale_chords.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "theory/accidental_text.h"
#include "theory/spelling.h"

namespace tonalith::theory {
namespace {

constexpr std::size_t kTriadNotes = 3;
constexpr std::size_t kSeventhNotes = 4;

/// The chords to look for within a scale, common ones first.
using Suffixes = std::span<const std::string_view>;
constexpr std::array<std::string_view, 6> kTriads = {"", "m", "dim", "aug", "sus4", "sus2"};
constexpr std::array<std::string_view, 11> kSevenths = {"7",      "maj7", "m7",    "m7b5", "dim7", "m(maj7)",
                                                        "maj7#5", "7#5",  "7sus4", "6",    "m6"};

/// The first type whose notes are in the scale and contain `core`.
const ChordType* WithinScale(PitchClassSet scale, Suffixes suffixes, PitchClassSet core) {
  for (const std::string_view suffix : suffixes) {
    const auto type = std::ranges::find(ChordTypes(), suffix, &ChordType::suffix);
    if (type == ChordTypes().end()) continue;
    const PitchClassSet notes = type->formula.Set();
    if (scale.Contains(notes) && notes.Contains(core)) return &*type;
  }
  return nullptr;
}

/// Every other note, counted from the first member of `scale`, as a type that has a name. In a scale of seven notes
/// these are thirds, so a rare name is right there; elsewhere only triads and sevenths are.
const ChordType* EveryOtherNote(PitchClassSet scale, std::size_t notes) {
  const std::vector<PitchClass> members = scale.Members();
  PitchClassSet chord;
  for (std::size_t i = 0; i < notes; ++i) chord.Add(members[2 * i % members.size()]);
  if (chord.Size() != static_cast<int>(notes)) return nullptr;
  const std::vector<ChordMatch>& matches = ChordsWithNotes(chord);
  if (matches.empty() || !matches.front().missing.IsEmpty()) return nullptr;
  const ChordType* type = matches.front().type;
  const bool plain = type->family == ChordFamily::kTriad || type->family == ChordFamily::kSeventh;
  return plain || scale.Size() == kLetters ? type : nullptr;
}

const ChordType* TriadOn(PitchClassSet scale) {
  const ChordType* type = EveryOtherNote(scale, kTriadNotes);
  return type != nullptr ? type : WithinScale(scale, kTriads, {});
}

/// A seventh chord that extends the triad, if there is one.
const ChordType* SeventhOn(PitchClassSet scale, const ChordType* triad) {
  const PitchClassSet core = triad == nullptr ? PitchClassSet() : triad->formula.Set();
  const ChordType* type = EveryOtherNote(scale, kSeventhNotes);
  return type != nullptr && type->formula.Set().Contains(core) ? type : WithinScale(scale, kSevenths, core);
}

bool Has(const ChordType& type, Degree degree) {
  return std::ranges::find(type.formula.Degrees(), degree) != type.formula.Degrees().end();
}

std::string SymbolOf(NoteName root, const ChordType* type, NoteStyle style) {
  return type == nullptr ? "" : Write(root, style) + StyledSuffix(type->suffix, style);
}

}  // namespace

std::string ScaleChord::Numeral() const {
  constexpr std::array<std::string_view, kLetters> kUpper = {"I", "II", "III", "IV", "V", "VI", "VII"};
  constexpr std::array<std::string_view, kLetters> kLower = {"i", "ii", "iii", "iv", "v", "vi", "vii"};
  const ChordType* type = triad != nullptr ? triad : seventh;
  const bool minor = type != nullptr && Has(*type, {3, -1});
  const auto index = static_cast<std::size_t>(degree.SimpleNumber() - 1);
  std::string numeral = AsciiAccidentals(degree.alteration).append(minor ? kLower[index] : kUpper[index]);
  if (minor && Has(*type, {5, -1})) return numeral + "\u00B0";
  return type != nullptr && !minor && Has(*type, {5, 1}) ? numeral + "+" : numeral;
}

std::string ScaleChord::TriadSymbol(NoteStyle style) const { return SymbolOf(root, triad, style); }
std::string ScaleChord::SeventhSymbol(NoteStyle style) const { return SymbolOf(root, seventh, style); }

std::vector<ScaleChord> ChordsOfScale(NoteName tonic, const Formula& formula) {
  const std::vector<NoteName> names = Spell(tonic, formula);
  std::vector<ScaleChord> chords;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const Degree degree = formula.Degrees()[i];
    const PitchClassSet scale = formula.Set().From(degree.PitchClass());
    const ChordType* triad = TriadOn(scale);
    chords.push_back({degree, names[i], triad, SeventhOn(scale, triad)});
  }
  return chords;
}

std::vector<ScaleGroup> ScalesOver(const ScaleIndex& index, std::span<const ChordSymbol> chords, std::size_t limit) {
  if (chords.empty()) return {};
  PitchClassSet notes;
  for (const ChordSymbol& chord : chords) notes = notes | chord.Notes();
  return index.Containing(notes, chords.front().root.PitchClass(), limit);
}

}  // namespace tonalith::theory
