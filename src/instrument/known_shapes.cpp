// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/known_shapes.h"

#include <algorithm>
#include <array>
#include <utility>
#include <variant>

#include "instrument/built_in_text.h"

namespace tonalith::instrument {
namespace {

constexpr std::array<std::string_view, 6> kColumns = {"Instrument", "Root", "Degrees", "Bass", "Frets", "Source"};
enum Column : std::size_t { kInstrument, kRoot, kDegrees, kBass, kFrets, kSource };
constexpr std::string_view kNoBass = "-";

/// A note name such as F# or Bb, by the parser of strings.
std::optional<theory::PitchClass> ParseNote(std::string_view text) {
  const auto string = ParseString(std::string(text) + "4");
  return string && !string->companion && string->firstFret == 0 ? std::optional(string->open.Class()) : std::nullopt;
}

std::variant<Chord, TableError> ParseChord(const TableRow& row) {
  const auto root = ParseNote(row.cells[kRoot]);
  if (!root) return row.ErrorAt(kRoot, TableReason::kUnknownNote);
  const auto formula = theory::Formula::Parse(row.cells[kDegrees]);
  if (!formula) return row.ErrorAt(kDegrees, TableReason::kUnknownDegrees, formula.Error().byte);
  Chord chord{*root, *formula, std::nullopt};
  if (row.cells[kBass] == kNoBass) return chord;
  chord.bass = ParseNote(row.cells[kBass]);
  if (!chord.bass) return row.ErrorAt(kBass, TableReason::kUnknownNote);
  return chord;
}

/// Whether the frets sound as the chord, with its bass if it has one.
bool IsShapeOf(const std::vector<theory::Pitch>& pitches, const Chord& chord, int strings) {
  if (pitches.empty()) return false;
  theory::PitchClassSet notes;
  for (const theory::Pitch pitch : pitches) notes.Add(pitch.Class());
  const ChordTones tones = TonesOf(chord, strings);
  const bool hasBass = !chord.bass || std::min_element(pitches.begin(), pitches.end())->Class() == *chord.bass;
  return hasBass && tones.all.Contains(notes) && tones.MissingFrom(notes).has_value();
}

std::variant<KnownShape, TableError> ParseShape(const TableRow& row, const std::vector<CatalogueEntry>& instruments) {
  const CatalogueEntry* entry = FindInstrument(instruments, row.cells[kInstrument]);
  if (entry == nullptr) return row.ErrorAt(kInstrument, TableReason::kUnknownInstrument);
  auto chord = ParseChord(row);
  if (const auto* error = std::get_if<TableError>(&chord)) return *error;
  auto frets = ParseFrets(row.cells[kFrets]);
  if (const auto* error = std::get_if<FretsError>(&frets)) {
    return row.ErrorAt(kFrets, TableReason::kUnknownFrets, error->byte);
  }
  const auto pitches = PitchesOf(entry->instrument, std::get<Frets>(frets));
  if (!pitches) return row.ErrorAt(kFrets, TableReason::kNoSuchFret);
  if (!IsShapeOf(*pitches, std::get<Chord>(chord), entry->instrument.Strings())) {
    return row.ErrorAt(kFrets, TableReason::kNotTheChord);
  }
  return KnownShape{entry->instrument.Description().strings, entry->id, std::get<Chord>(std::move(chord)),
                    std::get<Frets>(std::move(frets)), std::string(row.cells[kSource])};
}

/// The interval by which all strings of `instrument` are above those of the known shape; nothing if it is not one and
/// the same, or if a short string begins elsewhere.
std::optional<int> IntervalAbove(const std::vector<String>& strings, const Instrument& instrument) {
  if (strings.size() != static_cast<std::size_t>(instrument.Strings())) return std::nullopt;
  std::optional<int> interval;
  for (int i = 0; i < instrument.Strings(); ++i) {
    const String& string = strings[static_cast<std::size_t>(i)];
    const int above = instrument.Open(i).Midi() - string.open.Midi();
    if (interval.value_or(above) != above || instrument.FirstFret(i) != string.firstFret) return std::nullopt;
    interval = above;
  }
  return interval;
}

/// The semitones from the known chord to the wanted one, 0 to 11, on an instrument tuned `interval` higher; nothing if
/// they are chords of different types. A chord with a bass is not moved.
std::optional<int> StepsBetween(const Chord& known, const Chord& chord, int interval) {
  if (known.formula.Set() != chord.formula.Set()) return std::nullopt;
  const int steps = known.root.Up(interval).SemitonesUpTo(chord.root);
  if (known.bass) {
    return steps == 0 && chord.bass == known.bass->Up(interval) ? std::optional(0) : std::nullopt;
  }
  return !chord.bass || chord.bass == chord.root ? std::optional(steps) : std::nullopt;
}

bool IsOctaveCopy(const Frets& frets) {
  return std::none_of(frets.begin(), frets.end(),
                      [](Fret fret) { return fret && *fret < theory::kSemitonesPerOctave; });
}

bool HasOpenString(const Frets& frets) { return std::find(frets.begin(), frets.end(), Fret(0)) != frets.end(); }

Frets Moved(Frets frets, int steps) {
  for (Fret& fret : frets) {
    if (fret) *fret += steps;
  }
  return frets;
}

}  // namespace

KnownShapes ParseKnownShapes(std::string_view text, const std::vector<CatalogueEntry>& instruments) {
  const TextTable table = ReadTextTable(text, kColumns);
  KnownShapes known;
  for (const TableRow& row : table.rows) {
    auto shape = ParseShape(row, instruments);
    if (const auto* error = std::get_if<TableError>(&shape)) {
      known.error = *error;
      return known;
    }
    known.shapes.push_back(std::get<KnownShape>(std::move(shape)));
  }
  known.error = table.error;
  return known;
}

const std::vector<KnownShape>& BuiltInKnownShapes() {
  static const std::vector<KnownShape> shapes = ParseKnownShapes(kKnownShapesTable, BuiltInCatalogue()).shapes;
  return shapes;
}

std::vector<Frets> KnownShapesOf(const std::vector<KnownShape>& known, const Instrument& instrument,
                                 const Chord& chord) {
  std::vector<Frets> shapes;
  std::vector<Frets> moved;
  for (const KnownShape& shape : known) {
    const auto interval = IntervalAbove(shape.strings, instrument);
    const auto steps = interval ? StepsBetween(shape.chord, chord, *interval) : std::nullopt;
    if (!steps) continue;
    if (*steps == 0) {
      shapes.push_back(shape.frets);
    } else if (!HasOpenString(shape.frets)) {
      moved.push_back(Moved(shape.frets, *steps));
    }
  }
  std::erase_if(moved, IsOctaveCopy);
  const auto place = [](const Frets& frets) {
    return *std::find_if(frets.begin(), frets.end(), [](Fret f) { return f.has_value(); });
  };
  std::stable_sort(moved.begin(), moved.end(), [&](const Frets& a, const Frets& b) { return place(a) < place(b); });
  // A shape of the table may also be another one that is moved.
  for (const Frets& frets : moved) {
    if (std::find(shapes.begin(), shapes.end(), frets) == shapes.end()) shapes.push_back(frets);
  }
  return shapes;
}

}  // namespace tonalith::instrument
