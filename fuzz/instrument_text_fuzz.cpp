// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads each input as frets, as a table of instruments and as a table of known shapes. Frets that are read have to be
// read as the same from their own text; an error has to point into the text.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

#include "instrument/catalogue.h"
#include "instrument/fingering.h"
#include "instrument/frets.h"
#include "instrument/known_shapes.h"

namespace {

using namespace tonalith::instrument;

void Require(bool condition) {
  if (!condition) std::abort();
}

void ReadFrets(std::string_view text) {
  const auto parsed = ParseFrets(text);
  if (const auto* error = std::get_if<FretsError>(&parsed)) {
    Require(error->byte <= text.size() && !Text(error->problem).empty());
    return;
  }
  const Frets& frets = std::get<Frets>(parsed);
  const std::string written = ToText(frets);
  // Without a hyphen, two digits of a single string are two frets.
  if (frets.size() > 1) Require(std::get<Frets>(ParseFrets(written)) == frets);
  if (const auto fingering = FingeringOf(frets)) Require(fingering->count <= kFingers);
  (void)PitchesOf(DefaultInstrument(), frets);
}

void ReadTables(std::string_view text) {
  const std::string columns = "Id\tName\tGroup\tStrings\tFrets\tSource\n";
  const Catalogue catalogue = ParseCatalogue(columns + std::string(text));
  for (const CatalogueEntry& entry : catalogue.entries) {
    Require(!Instrument::ErrorIn(entry.instrument.Description()));
    Require(FindInstrument(catalogue.entries, entry.id) != nullptr);
  }
  if (catalogue.error) Require(!Describe(*catalogue.error).empty());
  const KnownShapes known =
      ParseKnownShapes("Instrument\tRoot\tDegrees\tBass\tFrets\tSource\n" + std::string(text), BuiltInCatalogue());
  for (const KnownShape& shape : known.shapes) {
    Require(shape.frets.size() == shape.strings.size());
  }
  if (known.error) Require(!Describe(*known.error).empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  ReadFrets(text);
  ReadTables(text);
  return 0;
}
