// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Instruments, chords, scales and answers of the room as short texts.

#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "instrument/catalogue.h"
#include "instrument/known_shapes.h"
#include "instrument/positions.h"
#include "instrument/shapes.h"

namespace tonalith::instrument::tests {

/// An entry of the catalogue by its id.
inline const Instrument& Named(const std::string& id) {
  const CatalogueEntry* entry = FindInstrument(BuiltInCatalogue(), id);
  EXPECT_NE(entry, nullptr) << id;
  return entry == nullptr ? DefaultInstrument() : entry->instrument;
}

/// An instrument with these strings: "E2 A2 D3".
inline InstrumentSetup SetupOf(const std::string& strings, int frets) {
  InstrumentSetup setup;
  setup.name = "Test";
  setup.frets = frets;
  std::istringstream words(strings);
  for (std::string word; words >> word;) setup.strings.push_back(ParseString(word).value());
  return setup;
}

inline Instrument Tuned(const std::string& strings, int frets) {
  return Instrument::Make(SetupOf(strings, frets)).value();
}

/// "C", "F#", "Bb".
inline theory::PitchClass Note(const std::string& name) { return ParseString(name + "4").value().open.Class(); }

inline Chord ChordOf(const std::string& root, const std::string& degrees, const std::string& bass = "") {
  Chord chord{Note(root), *theory::Formula::Parse(degrees), std::nullopt};
  if (!bass.empty()) chord.bass = Note(bass);
  return chord;
}

/// The frets of a text, which must be one.
inline Frets FretsFrom(const std::string& text) { return std::get<Frets>(ParseFrets(text)); }

/// The frets of the first shapes, as texts.
inline std::vector<std::string> FirstShapes(const Instrument& instrument, const Chord& chord, std::size_t count) {
  std::vector<std::string> shapes;
  for (const Shape& shape : ShapesOf(instrument, chord, {.limit = count}).shapes) shapes.push_back(ToText(shape.frets));
  return shapes;
}

/// A scale by its root and its steps: "C", "2212221".
inline Scale ScaleOf(const std::string& root, const std::string& pattern) {
  const theory::PitchClass pitchClass = Note(root);
  return {pitchClass, theory::PitchClassSet::FromPattern(pattern).value().Transposed(pitchClass.Semitones())};
}

/// "1: 8 10 | 7 8 10": the number of a position and its frets.
inline std::string Line(const Position& position) {
  std::string line = std::to_string(position.number) + ":";
  for (std::size_t i = 0; i < position.frets.size(); ++i) {
    if (i > 0) line += " |";
    for (const int fret : position.frets[i]) line += " " + std::to_string(fret);
  }
  return line;
}

inline std::vector<std::string> Lines(const std::vector<Position>& positions) {
  std::vector<std::string> lines;
  lines.reserve(positions.size());
  for (const Position& position : positions) lines.push_back(Line(position));
  return lines;
}

}  // namespace tonalith::instrument::tests
