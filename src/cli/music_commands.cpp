// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The commands that play: shapes, positions and chords.

#include <array>
#include <optional>

#include "cli/commands.h"
#include "cli/typed_music.h"
#include "instrument/shapes.h"
#include "theory/spelling.h"

namespace tonalith::cli {
namespace {

using catalogue::Catalogue;
using theory::NoteName;
using theory::SetKind;

/// The names of the notes of a chord or scale, by pitch class.
using Names = std::array<NoteName, theory::kSemitonesPerOctave>;

Names NamesOf(const Music& music) {
  Names names;
  for (int i = 0; i < theory::kSemitonesPerOctave; ++i) {
    names[static_cast<std::size_t>(i)] = theory::SharpName(theory::PitchClass(i));
  }
  const auto set = [&](NoteName name) { names[static_cast<std::size_t>(name.PitchClass().Semitones())] = name; };
  for (const NoteName name : theory::Spell(music.tonic, music.formula)) set(name);
  if (music.bass) set(*music.bass);
  return names;
}

ShownShape ShapeWithNotes(const instrument::Instrument& instrument, const instrument::Shape& shape,
                          const Names& names) {
  ShownShape shown{shape.frets, shape.fingering, {}};
  for (int string = 0; string < instrument.Strings(); ++string) {
    const instrument::Fret fret = shape.frets[static_cast<std::size_t>(string)];
    const auto pitch = fret ? instrument.PitchAt(string, *fret) : std::nullopt;
    if (pitch) shown.notes.push_back(names[static_cast<std::size_t>(pitch->Class().Semitones())]);
  }
  return shown;
}

/// Two notes on each string for up to five notes, three for six or seven, otherwise four.
int UsualNotesPerString(int notes) {
  constexpr int kPentatonic = 5;
  constexpr int kHeptatonic = 7;
  if (notes <= kPentatonic) return 2;
  return notes <= kHeptatonic ? 3 : 4;
}

}  // namespace

ShownShapes FindShapes(const Catalogue& catalogue, const Options& options) {
  const instrument::CatalogueEntry& entry = ReadInstrument(options);
  const Music music = ReadMusic(catalogue, options, SetKind::kChord);
  std::optional<theory::PitchClass> bass;
  if (music.bass) bass = music.bass->PitchClass();
  const instrument::Chord chord{music.tonic.PitchClass(), music.chordFormula, bass};
  instrument::ShapeOptions shapeOptions;
  shapeOptions.limit = static_cast<std::size_t>(options.limit);
  const Names names = NamesOf(music);
  ShownShapes shown{&entry, {}};
  for (const instrument::Shape& shape : instrument::ShapesOf(entry.instrument, chord, shapeOptions).shapes) {
    shown.shapes.push_back(ShapeWithNotes(entry.instrument, shape, names));
  }
  return shown;
}

ShownPositions FindPositions(const Catalogue& catalogue, const Options& options) {
  const instrument::CatalogueEntry& entry = ReadInstrument(options);
  const Music music = ReadMusic(catalogue, options, SetKind::kScale);
  const instrument::Scale scale{music.tonic.PitchClass(), music.Notes()};
  if (options.system == PositionSystem::kBoxes) return {&entry, instrument::Boxes(entry.instrument, scale)};
  const int perString = options.notesPerString.value_or(UsualNotesPerString(scale.notes.Size()));
  return {&entry, instrument::NotesPerString(entry.instrument, scale, perString)};
}

std::vector<theory::ScaleChord> FindChords(const Catalogue& catalogue, const Options& options) {
  const Music music = ReadMusic(catalogue, options, SetKind::kScale);
  return theory::ChordsOfScale(music.tonic, music.formula);
}

}  // namespace tonalith::cli
