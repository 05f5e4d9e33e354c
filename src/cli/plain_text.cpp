// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "cli/plain_text.h"

#include <algorithm>
#include <string_view>

#include "core/text.h"

namespace tonalith::cli {
namespace {

using theory::NoteName;
using theory::NoteStyle;

using Cells = std::vector<std::string>;

/// Wider cells are not aligned, so that one long name does not push all others apart.
constexpr std::size_t kMostAligned = 48;
constexpr std::string_view kIndent = "  ";

/// Rows of cells, aligned and separated by two blanks.
std::string Columns(const std::vector<Cells>& rows, std::string_view indent = "") {
  std::vector<std::size_t> widths;
  for (const Cells& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], std::min(core::CharacterCount(row[i]), kMostAligned));
    }
  }
  std::string text;
  for (const Cells& row : rows) {
    std::string line(indent);
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::size_t length = core::CharacterCount(row[i]);
      line += row[i] + std::string(length < widths[i] ? widths[i] - length : 0, ' ') + "  ";
    }
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
  }
  return text;
}

std::string Joined(const Cells& texts, std::string_view separator) {
  std::string text;
  for (std::size_t i = 0; i < texts.size(); ++i) text += std::string(i == 0 ? "" : separator) + texts[i];
  return text;
}

std::string NotesText(const std::vector<NoteName>& notes, NoteStyle style) {
  Cells names;
  for (const NoteName note : notes) names.push_back(theory::Write(note, style));
  return Joined(names, " ");
}

std::string SignatureText(int signature) {
  if (signature == 0) return "no sharps or flats";
  const int count = std::abs(signature);
  return std::to_string(count) + (signature > 0 ? " sharp" : " flat") + (count == 1 ? "" : "s");
}

std::string FingersText(const std::vector<int>& fingers) {
  std::string text;
  for (const int finger : fingers) text += finger == instrument::kNoFinger ? "-" : std::to_string(finger);
  return text;
}

std::string BarresText(const instrument::Fingering& fingering) {
  const auto strings = static_cast<int>(fingering.fingers.size());
  Cells texts;
  for (const instrument::Barre& barre : fingering.barres) {
    texts.push_back("barre " + std::to_string(barre.fret) + " on strings " +
                    std::to_string(strings - barre.fromString) + " to " + std::to_string(strings - barre.toString));
  }
  return Joined(texts, ", ");
}

Cells StringRow(const std::string& open, const std::vector<int>& frets) {
  Cells row{open};
  for (const int fret : frets) row.push_back(std::to_string(fret));
  return row;
}

}  // namespace

std::string PlainText(const std::vector<ListedEntry>& entries, NoteStyle /*style*/) {
  std::vector<Cells> rows;
  rows.reserve(entries.size());
  for (const ListedEntry& entry : entries) {
    rows.push_back({entry.name, entry.formula.IsEmpty() ? entry.pattern : entry.formula.ToText(), entry.type});
  }
  return Columns(rows);
}

std::string PlainText(const ShownMusic& music, NoteStyle style) {
  std::vector<Cells> rows{{"Notes", NotesText(music.notes, style)}, {"Degrees", music.formula.ToText()}};
  if (!music.pattern.empty()) rows.push_back({"Pattern", music.pattern});
  if (music.keySignature) rows.push_back({"Key signature", SignatureText(*music.keySignature)});
  if (music.alternative) rows.push_back({"Easier to read in", theory::Write(*music.alternative, style)});
  if (!music.aliases.empty()) rows.push_back({"Also called", Joined(music.aliases, ", ")});
  std::string text = music.name + ", key " + theory::Write(music.key, style) + "\n\n" + Columns(rows, kIndent);
  if (!music.description.empty()) text += "\n" + music.description + "\n";
  return text;
}

std::string PlainText(const NamedNotes& named, NoteStyle style) {
  std::vector<Cells> chords;
  for (const theory::ChordName& chord : named.chords) {
    Cells row{chord.Symbol(style), chord.FullName(style)};
    if (!chord.missing.empty()) row.push_back("without " + NotesText(chord.missing, style));
    if (!chord.added.empty()) row.push_back("with " + NotesText(chord.added, style));
    chords.push_back(row);
  }
  std::vector<Cells> scales;
  for (const NamedScale& scale : named.scales) {
    Cells row{theory::Write(scale.key, style), scale.name};
    if (!scale.extra.empty()) row.push_back("with " + NotesText(scale.extra, style));
    scales.push_back(row);
  }
  std::string text = "Notes  " + NotesText(named.notes, style) + "\n";
  if (!chords.empty()) text += "\nChords\n" + Columns(chords, kIndent);
  if (!scales.empty()) text += "\nScales\n" + Columns(scales, kIndent);
  return text;
}

std::string PlainText(const ShownShapes& shapes, NoteStyle style) {
  if (shapes.shapes.empty()) return "No hand can play it on this instrument.\n";
  std::vector<Cells> rows;
  for (const ShownShape& shape : shapes.shapes) {
    rows.push_back({instrument::ToText(shape.frets), FingersText(shape.fingering.fingers),
                    NotesText(shape.notes, style), BarresText(shape.fingering)});
  }
  return "Frets, fingers and notes, string " + std::to_string(shapes.instrument->instrument.Strings()) +
         " first: " + shapes.instrument->instrument.Name() + "\n" + Columns(rows, kIndent);
}

std::string PlainText(const ShownPositions& positions, NoteStyle /*style*/) {
  if (positions.positions.empty()) return "There are no positions on this instrument.\n";
  std::string text = "Frets on each string: " + positions.instrument->instrument.Name() + "\n";
  for (const instrument::Position& position : positions.positions) {
    std::vector<Cells> rows;
    for (std::size_t i = 0; i < position.frets.size(); ++i) {
      rows.push_back(StringRow(positions.instrument->openStrings[i], position.frets[i]));
    }
    text += "\nPosition " + std::to_string(position.number) + "\n" + Columns(rows, kIndent);
  }
  return text;
}

std::string PlainText(const std::vector<theory::ScaleChord>& chords, NoteStyle style) {
  std::vector<Cells> rows;
  rows.reserve(chords.size());
  for (const theory::ScaleChord& chord : chords) {
    const std::string triad = chord.TriadSymbol(style);
    const std::string seventh = chord.SeventhSymbol(style);
    rows.push_back(
        {chord.degree.ToText(), chord.Numeral(), triad.empty() ? "-" : triad, seventh.empty() ? "-" : seventh});
  }
  return Columns(rows);
}

std::string PlainText(const std::vector<instrument::CatalogueEntry>& instruments, NoteStyle /*style*/) {
  std::vector<Cells> rows;
  rows.reserve(instruments.size());
  for (const instrument::CatalogueEntry& entry : instruments) {
    rows.push_back({entry.id, entry.instrument.Name(), Joined(entry.openStrings, " "),
                    std::to_string(entry.instrument.Frets()) + " frets"});
  }
  return Columns(rows);
}

}  // namespace tonalith::cli
