// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/catalogue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <utility>
#include <variant>

#include "instrument/built_in_text.h"

namespace tonalith::instrument {
namespace {

constexpr std::array<std::string_view, 6> kColumns = {"Id", "Name", "Group", "Strings", "Frets", "Source"};
enum Column : std::size_t { kId, kName, kGroup, kStrings, kFrets, kSource };

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char left, char right) { return LowerCase(left) == LowerCase(right); });
}

bool IsId(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-'; });
}

std::optional<int> ParseNumber(std::string_view text) {
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || result.ec != std::errc{} || result.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

/// "E2", "F#3", "Bb2"; octaves change between B and C, and C4 is MIDI 60.
std::optional<theory::Pitch> ParsePitch(std::string_view text) {
  constexpr std::string_view kLetterNames = "CDEFGAB";
  constexpr std::array<int, 7> kNaturals = {0, 2, 4, 5, 7, 9, 11};
  const std::size_t letter = text.empty() ? std::string_view::npos : kLetterNames.find(text.front());
  if (letter == std::string_view::npos) return std::nullopt;
  text.remove_prefix(1);
  int semitones = kNaturals.at(letter);
  if (!text.empty() && (text.front() == '#' || text.front() == 'b')) {
    semitones += text.front() == '#' ? 1 : -1;
    text.remove_prefix(1);
  }
  if (text.size() != 1) return std::nullopt;
  const auto octave = ParseNumber(text);
  if (!octave) return std::nullopt;
  return theory::Pitch(theory::kSemitonesPerOctave * (*octave + 1) + semitones);
}

/// The pitch before "+" or "@".
std::string_view PitchText(std::string_view string) { return string.substr(0, string.find_first_of("+@")); }

struct Tuning {
  std::vector<String> strings;
  std::vector<std::string> names;
};

std::variant<Tuning, TableError> ParseTuning(const TableRow& row) {
  const std::string_view cell = row.cells[kStrings];
  Tuning tuning;
  for (std::size_t begin = 0; begin <= cell.size();) {
    const std::size_t end = std::min(cell.find(' ', begin), cell.size());
    const std::string_view text = cell.substr(begin, end - begin);
    const auto string = ParseString(text);
    if (!string) {
      const bool hasPitch = ParsePitch(PitchText(text)).has_value() && text.find('@') != std::string_view::npos;
      return row.ErrorAt(kStrings, hasPitch ? TableReason::kBadFirstFret : TableReason::kUnknownPitch, begin);
    }
    tuning.strings.push_back(*string);
    tuning.names.emplace_back(PitchText(text));
    begin = end + 1;
  }
  return tuning;
}

/// The byte of the cell at which the string with this index begins.
std::size_t ByteOfString(std::string_view cell, std::size_t index) {
  std::size_t byte = 0;
  while (index-- > 0) byte = cell.find(' ', byte) + 1;
  return byte;
}

TableError SetupErrorIn(const TableRow& row, const SetupError& error) {
  const bool isAboutFrets = error.problem == SetupProblem::kFretsOutOfRange;
  const bool isAboutName = error.problem == SetupProblem::kNameTooLong;
  const std::size_t cell = isAboutFrets ? kFrets : isAboutName ? kName : kStrings;
  TableError found =
      row.ErrorAt(cell, TableReason::kSetup, error.string ? ByteOfString(row.cells[kStrings], *error.string) : 0);
  found.setup = error.problem;
  return found;
}

std::variant<CatalogueEntry, TableError> ParseEntry(const TableRow& row) {
  if (!IsId(row.cells[kId])) return row.ErrorAt(kId, TableReason::kBadId);
  auto tuning = ParseTuning(row);
  if (const auto* error = std::get_if<TableError>(&tuning)) return *error;
  const auto frets = ParseNumber(row.cells[kFrets]);
  if (!frets) return row.ErrorAt(kFrets, TableReason::kNotANumber);
  InstrumentSetup setup;
  setup.name = row.cells[kName];
  setup.strings = std::move(std::get<Tuning>(tuning).strings);
  setup.frets = *frets;
  if (const auto error = Instrument::ErrorIn(setup)) return SetupErrorIn(row, *error);
  return CatalogueEntry{std::string(row.cells[kId]), std::string(row.cells[kGroup]), std::string(row.cells[kSource]),
                        std::move(std::get<Tuning>(tuning).names), *Instrument::Make(std::move(setup))};
}

// "Drop D" of "Guitar, drop D"; the whole name if it has no comma.
std::string_view TuningIn(std::string_view name) {
  constexpr std::string_view kSeparator = ", ";
  const std::size_t comma = name.find(kSeparator);
  return comma == std::string_view::npos ? name : name.substr(comma + kSeparator.size());
}

}  // namespace

std::optional<String> ParseString(std::string_view text) {
  const auto open = ParsePitch(PitchText(text));
  if (!open) return std::nullopt;
  String string;
  string.open = *open;
  const std::string_view rest = text.substr(PitchText(text).size());
  if (rest.starts_with('+')) {
    string.companion = ParsePitch(rest.substr(1));
    if (!string.companion) return std::nullopt;
  } else if (rest.starts_with('@')) {
    const auto fret = ParseNumber(rest.substr(1));
    if (!fret || *fret < 1 || *fret >= Instrument::kMostFrets) return std::nullopt;
    string.firstFret = *fret;
  }
  return string;
}

Catalogue ParseCatalogue(std::string_view text) {
  TextTable table = ReadTextTable(text, kColumns);
  Catalogue catalogue;
  std::set<std::string_view> ids;
  std::set<std::string_view> names;
  for (const TableRow& row : table.rows) {
    auto entry = ParseEntry(row);
    if (const auto* error = std::get_if<TableError>(&entry)) {
      catalogue.error = *error;
    } else if (!ids.insert(row.cells[kId]).second) {
      catalogue.error = row.ErrorAt(kId, TableReason::kIdTwice);
    } else if (!names.insert(row.cells[kName]).second) {
      catalogue.error = row.ErrorAt(kName, TableReason::kNameTwice);
    }
    if (catalogue.error) return catalogue;
    catalogue.entries.push_back(std::move(std::get<CatalogueEntry>(entry)));
  }
  catalogue.error = table.error;
  return catalogue;
}

const std::vector<CatalogueEntry>& BuiltInCatalogue() {
  static const std::vector<CatalogueEntry> entries = ParseCatalogue(kInstrumentsTable).entries;
  return entries;
}

const Instrument& DefaultInstrument() { return BuiltInCatalogue().front().instrument; }

const CatalogueEntry* FindInstrument(const std::vector<CatalogueEntry>& entries, std::string_view text) {
  const auto first = [&entries](const auto& matches) {
    const auto found = std::find_if(entries.begin(), entries.end(), matches);
    return found == entries.end() ? nullptr : &*found;
  };
  if (const auto* const entry = first([text](const CatalogueEntry& candidate) {
        return EqualIgnoringCase(candidate.id, text) || EqualIgnoringCase(candidate.instrument.Name(), text);
      })) {
    return entry;
  }
  return first([text](const CatalogueEntry& candidate) {
    return EqualIgnoringCase(TuningIn(candidate.instrument.Name()), text);
  });
}

}  // namespace tonalith::instrument
