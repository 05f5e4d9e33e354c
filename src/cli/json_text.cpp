// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "cli/json_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

#include "theory/note_style.h"

namespace tonalith::cli {
namespace {

using Json = nlohmann::ordered_json;
using theory::NoteName;

Json NoteJson(NoteName note) { return theory::Write(note); }

Json NoteJson(const std::optional<NoteName>& note) { return note ? NoteJson(*note) : Json(nullptr); }

Json NotesJson(const std::vector<NoteName>& notes) {
  Json array = Json::array();
  for (const NoteName note : notes) array.push_back(NoteJson(note));
  return array;
}

Json DegreesJson(const theory::Formula& formula) {
  Json array = Json::array();
  for (const theory::Degree& degree : formula.Degrees()) array.push_back(degree.ToText());
  return array;
}

Json MidiJson(const std::vector<theory::Pitch>& pitches) {
  Json array = Json::array();
  for (const theory::Pitch pitch : pitches) array.push_back(pitch.Midi());
  return array;
}

/// Empty texts are null.
Json TextOrNull(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

Json ElementJson(const ListedEntry& entry) {
  return {{"id", entry.id},          {"name", entry.name},       {"type", entry.type},
          {"chord", entry.isChord},  {"pattern", entry.pattern}, {"degrees", DegreesJson(entry.formula)},
          {"aliases", entry.aliases}};
}

Json ElementJson(const theory::ChordName& chord) {
  return {{"symbol", chord.Symbol()},
          {"name", chord.FullName()},
          {"root", NoteJson(chord.root)},
          {"bass", NoteJson(chord.bass.value_or(chord.root))},
          {"missing", NotesJson(chord.missing)},
          {"added", NotesJson(chord.added)}};
}

Json ElementJson(const NamedScale& scale) {
  return {{"name", scale.name},
          {"key", NoteJson(scale.key)},
          {"exact", scale.extra.empty()},
          {"extra", NotesJson(scale.extra)}};
}

Json BarresJson(const instrument::Fingering& fingering) {
  const auto strings = static_cast<int>(fingering.fingers.size());
  Json array = Json::array();
  for (const instrument::Barre& barre : fingering.barres) {
    array.push_back({{"fret", barre.fret}, {"from", strings - barre.fromString}, {"to", strings - barre.toString}});
  }
  return array;
}

Json ElementJson(const ShownShape& shape) {
  Json frets = Json::array();
  for (const instrument::Fret fret : shape.frets) frets.push_back(fret ? Json(*fret) : Json(nullptr));
  return {{"frets", frets},
          {"fingers", shape.fingering.fingers},
          {"barres", BarresJson(shape.fingering)},
          {"notes", NotesJson(shape.notes)}};
}

Json ElementJson(const instrument::Position& position) {
  return {{"number", position.number}, {"strings", position.frets}};
}

Json ElementJson(const theory::ScaleChord& chord) {
  return {{"degree", chord.degree.ToText()},
          {"numeral", chord.Numeral()},
          {"triad", TextOrNull(chord.TriadSymbol())},
          {"seventh", TextOrNull(chord.SeventhSymbol())}};
}

Json ElementJson(const instrument::CatalogueEntry& entry) {
  return {{"name", entry.instrument.Name()}, {"strings", entry.openStrings}, {"frets", entry.instrument.Frets()}};
}

template <typename Element>
Json ArrayJson(const std::vector<Element>& elements) {
  Json array = Json::array();
  for (const Element& element : elements) array.push_back(ElementJson(element));
  return array;
}

std::string Dump(const Json& json) { return json.dump(-1, ' ', true, nlohmann::json::error_handler_t::replace) + "\n"; }

/// An element a line, so that large answers can be read and compared.
template <typename Element>
std::string DumpLines(const std::vector<Element>& elements) {
  std::string text = "[";
  for (const Element& element : elements) {
    text += text.size() > 1 ? ",\n " : "";
    const std::string line = Dump(ElementJson(element));
    text.append(line, 0, line.size() - 1);
  }
  return text + "]\n";
}

}  // namespace

std::string JsonText(const std::vector<ListedEntry>& entries) { return DumpLines(entries); }

std::string JsonText(const ShownMusic& music) {
  return Dump({{"name", music.name},
               {"key", NoteJson(music.key)},
               {"alternative", NoteJson(music.alternative)},
               {"pattern", music.pattern},
               {"notes", NotesJson(music.notes)},
               {"degrees", DegreesJson(music.formula)},
               {"midi", MidiJson(music.pitches)},
               {"keySignature", music.keySignature ? Json(*music.keySignature) : Json(nullptr)},
               {"description", music.description},
               {"aliases", music.aliases}});
}

std::string JsonText(const NamedNotes& named) {
  return Dump({{"notes", NotesJson(named.notes)},
               {"bass", NoteJson(named.notes.front())},
               {"chords", ArrayJson(named.chords)},
               {"scales", ArrayJson(named.scales)}});
}

std::string JsonText(const ShownShapes& shapes) { return DumpLines(shapes.shapes); }

std::string JsonText(const ShownPositions& positions) { return DumpLines(positions.positions); }

std::string JsonText(const std::vector<theory::ScaleChord>& chords) { return DumpLines(chords); }

std::string JsonText(const std::vector<instrument::CatalogueEntry>& instruments) { return DumpLines(instruments); }

}  // namespace tonalith::cli
