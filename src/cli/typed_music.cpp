// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "cli/typed_music.h"

#include <algorithm>
#include <variant>

#include "catalogue/name_lookup.h"
#include "cli/messages.h"
#include "cli/refusal.h"
#include "core/text.h"
#include "theory/chord_symbol.h"
#include "theory/chord_types.h"
#include "theory/interval.h"
#include "theory/note_parser.h"
#include "theory/spelling.h"

namespace tonalith::cli {
namespace {

using catalogue::Catalogue;
using theory::NoteName;
using theory::SetKind;

std::optional<NoteName> ReadKey(const Options& options) {
  if (!options.key) return std::nullopt;
  const auto note = theory::ParseNote(*options.key, theory::MeaningOfBIn(options.style.language));
  if (!note) {
    const std::string reason(Text(note.Error().reason));
    throw Refusal(kWrongUsage, {MessageId::kNoKey, Shown(*options.key), reason});
  }
  if (note->octave) throw Refusal(kWrongUsage, {MessageId::kKeyHasOctave, Shown(*options.key)});
  return note->name;
}

[[noreturn]] void ThrowUnknown(const Catalogue& catalogue, const std::string& text) {
  const std::vector<std::string> names = catalogue::NearestNames(catalogue, text);
  if (names.empty()) throw Refusal(kNotFound, {MessageId::kUnknownEntryOfNone, Shown(text)});
  throw Refusal(kNotFound, {MessageId::kUnknownEntry, Shown(text), Listed(names)});
}

Music FromEntry(const Catalogue& catalogue, std::size_t index, const Options& options) {
  Music music;
  music.name = catalogue.NameAt(index);
  music.kind = catalogue.KindAt(index);
  music.formula = catalogue.FormulaAt(index);
  music.chordFormula = music.formula;
  if (music.formula.IsEmpty()) {
    throw Refusal(kNotFound, {MessageId::kNoOctave, Shown(music.name), Shown(catalogue.At(index).pattern)});
  }
  music.tonic = ReadKey(options).value_or(NoteName());
  music.entry = index;
  return music;
}

/// The degrees of the first octave, sorted: what decides the letters of the notes.
std::vector<std::pair<int, int>> SimpleDegrees(const theory::Formula& formula) {
  std::vector<std::pair<int, int>> degrees;
  for (const theory::Degree& degree : formula.Degrees()) {
    degrees.emplace_back(degree.SimpleNumber(), degree.alteration);
  }
  std::sort(degrees.begin(), degrees.end());
  return degrees;
}

/// The chord of the catalogue with these degrees. C7b13 is not C7#5, though they sound alike.
std::optional<std::size_t> ChordEntry(const Catalogue& catalogue, const theory::Formula& formula) {
  for (std::size_t i = 0; i < catalogue.Size(); ++i) {
    if (catalogue.KindAt(i) != SetKind::kChord || catalogue.NotesAt(i) != formula.Set()) continue;
    if (SimpleDegrees(catalogue.FormulaAt(i)) == SimpleDegrees(formula)) return i;
  }
  return std::nullopt;
}

std::string NameOf(const theory::ChordSymbol& symbol) {
  for (const theory::ChordType& type : theory::ChordTypes()) {
    if (SimpleDegrees(type.formula) == SimpleDegrees(symbol.formula)) return std::string(type.words);
  }
  return theory::WriteChordSuffix(symbol.formula);
}

/// The degree of a bass that is not in the chord, in the second octave as in added-note chords.
theory::Formula WithBass(const theory::Formula& formula, NoteName root, NoteName bass) {
  const int aboveRoot = root.PitchClass().SemitonesUpTo(bass.PitchClass());
  if (formula.Set().Contains(theory::PitchClass(aboveRoot))) return formula;
  theory::Degree degree{theory::Interval::Between(root, bass).steps + 1, 0};
  if (degree.number % 2 == 0) degree.number += theory::kLetters;
  degree.alteration = aboveRoot - degree.PitchClass().Semitones();
  std::vector<theory::Degree> degrees = formula.Degrees();
  if (std::abs(degree.alteration) <= theory::Degree::kMostAccidentals) {
    degrees.push_back(degree);
    return theory::Formula(degrees);
  }
  theory::PitchClassSet notes = formula.Set();
  notes.Add(theory::PitchClass(aboveRoot));
  return theory::DeriveChordFormula(notes);
}

Music FromSymbol(const Catalogue& catalogue, const theory::ChordSymbol& symbol, const Options& options,
                 std::optional<NoteName> key) {
  if (key && *key != symbol.root) {
    throw Refusal(kWrongUsage, {MessageId::kOtherRoot, Shown(options.text), theory::Write(*key)});
  }
  Music music;
  music.kind = SetKind::kChord;
  music.tonic = symbol.root;
  music.bass = symbol.bass;
  music.entry = ChordEntry(catalogue, symbol.formula);
  music.name = music.entry ? std::string(catalogue.NameAt(*music.entry)) : NameOf(symbol);
  music.formula = music.entry ? catalogue.FormulaAt(*music.entry) : symbol.formula;
  music.chordFormula = music.formula;
  if (!symbol.bass) return music;
  music.name += " over " + theory::Write(*symbol.bass);
  music.formula = WithBass(music.formula, symbol.root, *symbol.bass);
  // A note of its own makes it another set than the entry.
  if (music.formula.Set() != symbol.formula.Set()) music.entry.reset();
  return music;
}

std::optional<Music> ReadSymbol(const Catalogue& catalogue, const Options& options) {
  const std::optional<NoteName> key = ReadKey(options);
  if (const auto suffix = theory::ParseChordSuffix(options.text)) {
    return FromSymbol(catalogue, {key.value_or(NoteName()), *suffix, std::nullopt}, options, key);
  }
  const auto symbol = theory::ParseChordSymbol(options.text, theory::ChordReadingIn(options.style.language));
  if (!symbol) return std::nullopt;
  return FromSymbol(catalogue, *symbol, options, key);
}

[[noreturn]] void RefuseFrets(const Options& options, std::string_view reason) {
  throw Refusal(kWrongUsage, {MessageId::kNoFrets, Shown(options.text), std::string(reason)});
}

void RequireFrets(const instrument::Instrument& instrument, const instrument::Frets& frets) {
  if (frets.size() != static_cast<std::size_t>(instrument.Strings())) {
    throw Refusal(kWrongUsage, {MessageId::kOtherStrings, instrument.Name(), instrument.Strings(), frets.size()});
  }
  for (int string = 0; string < instrument.Strings(); ++string) {
    const instrument::Fret fret = frets[static_cast<std::size_t>(string)];
    if (!fret || instrument.PitchAt(string, *fret)) continue;
    throw Refusal(kWrongUsage, {MessageId::kNoFretThere, instrument.NumberOf(string), instrument.Name(), *fret});
  }
}

}  // namespace

theory::PitchClassSet Music::Notes() const { return formula.Set().Transposed(tonic.PitchClass().Semitones()); }

Music ReadMusic(const Catalogue& catalogue, const Options& options, std::optional<SetKind> preferred) {
  if (const auto entry = catalogue::FindEntry(catalogue, options.text, preferred)) {
    return FromEntry(catalogue, *entry, options);
  }
  // An empty suffix would be a major triad.
  if (!core::Trim(options.text).empty()) {
    if (const auto music = ReadSymbol(catalogue, options)) return *music;
  }
  ThrowUnknown(catalogue, options.text);
}

const instrument::CatalogueEntry& ReadInstrument(const Options& options) {
  const auto& entries = instrument::BuiltInCatalogue();
  if (!options.instrument) return entries.front();
  if (const auto* const entry = instrument::FindInstrument(entries, *options.instrument)) return *entry;
  std::vector<std::string> names;
  for (const auto& entry : entries) names.insert(names.end(), {entry.instrument.Name(), entry.id});
  throw Refusal(kNotFound, {MessageId::kUnknownInstrument, Shown(*options.instrument),
                            Listed(catalogue::NearestTexts(names, *options.instrument))});
}

bool LooksLikeFrets(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789xX- ") == std::string_view::npos &&
         text.find_first_not_of("- ") != std::string_view::npos;
}

std::vector<theory::Pitch> ReadFrets(const Options& options) {
  const instrument::Instrument& instrument = ReadInstrument(options).instrument;
  std::string text(core::Trim(options.text));
  std::replace(text.begin(), text.end(), ' ', '-');
  const auto read = instrument::ParseFrets(text);
  if (const auto* const error = std::get_if<instrument::FretsError>(&read)) RefuseFrets(options, Text(error->problem));
  const auto& frets = std::get<instrument::Frets>(read);
  RequireFrets(instrument, frets);
  std::vector<theory::Pitch> pitches = instrument::PitchesOf(instrument, frets).value_or(std::vector<theory::Pitch>());
  if (pitches.empty()) throw Refusal(kWrongUsage, MessageId::kAllMuted);
  std::stable_sort(pitches.begin(), pitches.end());
  return pitches;
}

std::vector<NoteName> ReadNotes(const Options& options) {
  const auto typed = theory::ParseNotes(options.text, theory::MeaningOfBIn(options.style.language));
  if (!typed) {
    throw Refusal(kWrongUsage,
                  {MessageId::kNoNotes, Shown(options.text), theory::Describe(typed.Error(), options.text)});
  }
  std::vector<NoteName> names;
  for (const theory::TypedNote& note : *typed) {
    if (std::find(names.begin(), names.end(), note.name) == names.end()) names.push_back(note.name);
  }
  return names;
}

std::string Shown(std::string_view text) {
  constexpr std::size_t kMostShown = 60;
  std::string shown;
  std::size_t count = 0;
  for (const std::string_view character : core::Characters(text.substr(0, 4 * (kMostShown + 1)))) {
    if (count++ == kMostShown) return shown + "...";
    constexpr unsigned char kFirstPrintable = 0x20;
    constexpr char kDelete = 0x7F;
    const bool isControl =
        static_cast<unsigned char>(character.front()) < kFirstPrintable || character.front() == kDelete;
    if (isControl || core::WellFormedLength(character) != character.size()) {
      shown += "\uFFFD";
    } else {
      shown += character;
    }
  }
  return shown;
}

std::string Listed(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? " and " : ", ";
    text += '"' + Shown(names[i]) + '"';
  }
  return text;
}

}  // namespace tonalith::cli
