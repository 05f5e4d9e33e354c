// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The answers of the commands as values, without their texts.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "instrument/catalogue.h"
#include "instrument/fingering.h"
#include "instrument/frets.h"
#include "instrument/positions.h"
#include "theory/chord_finder.h"
#include "theory/formula.h"
#include "theory/note_name.h"
#include "theory/pitch.h"
#include "theory/scale_chords.h"

namespace tonalith::cli {

struct ListedEntry {
  std::int64_t id = 0;
  std::string name;
  std::string type;
  bool isChord = false;
  std::string pattern;
  /// Empty if the pattern has no notes.
  theory::Formula formula;
  /// Only those in ASCII.
  std::vector<std::string> aliases;
};

struct ShownMusic {
  std::string name;
  theory::NoteName key;
  std::optional<theory::NoteName> alternative;
  std::string pattern;
  /// One for each degree of the formula, as are the pitches.
  std::vector<theory::NoteName> notes;
  theory::Formula formula;
  /// Ascending from the octave of middle C.
  std::vector<theory::Pitch> pitches;
  std::optional<int> keySignature;
  std::string description;
  std::vector<std::string> aliases;
};

struct NamedScale {
  std::string name;
  theory::NoteName key;
  /// The notes of the scale that were not asked for; none if it has exactly the notes.
  std::vector<theory::NoteName> extra;
};

struct NamedNotes {
  /// Without repetitions, the lowest first.
  std::vector<theory::NoteName> notes;
  std::vector<theory::ChordName> chords;
  std::vector<NamedScale> scales;
};

struct ShownShape {
  instrument::Frets frets;
  instrument::Fingering fingering;
  /// Of the sounding strings.
  std::vector<theory::NoteName> notes;
};

struct ShownShapes {
  const instrument::CatalogueEntry* instrument = nullptr;
  std::vector<ShownShape> shapes;
};

struct ShownPositions {
  const instrument::CatalogueEntry* instrument = nullptr;
  std::vector<instrument::Position> positions;
};

}  // namespace tonalith::cli
