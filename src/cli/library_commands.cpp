// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The commands that show entries: list and show.

#include <algorithm>
#include <string_view>

#include "catalogue/folded_text.h"
#include "catalogue/name_lookup.h"
#include "catalogue/word_search.h"
#include "cli/commands.h"
#include "cli/messages.h"
#include "cli/refusal.h"
#include "cli/typed_music.h"
#include "core/upper_case.h"
#include "theory/key.h"
#include "theory/spelling.h"

namespace tonalith::cli {
namespace {

using catalogue::Catalogue;

constexpr int kMiddleC = 60;

std::vector<std::string> AsciiAliases(const Catalogue& catalogue, std::size_t index) {
  std::vector<std::string> aliases;
  for (const std::string_view alias : catalogue.AliasesAt(index)) {
    if (core::IsAscii(alias)) aliases.emplace_back(alias);
  }
  return aliases;
}

/// The types of the catalogue, each once, in their order.
std::vector<std::string> Types(const Catalogue& catalogue) {
  std::vector<std::string> types;
  for (std::size_t i = 0; i < catalogue.Size(); ++i) {
    const std::string_view type = catalogue.At(i).type;
    // Entries of one type are mostly neighbours.
    if (!types.empty() && types.back() == type) continue;
    if (std::find(types.begin(), types.end(), type) == types.end()) types.emplace_back(type);
  }
  return types;
}

void RequireType(const Catalogue& catalogue, const std::string& text) {
  const std::vector<std::string> types = Types(catalogue);
  const std::u32string folded = catalogue::Fold(text);
  const auto isIt = [&](const std::string& type) { return catalogue::Fold(type) == folded; };
  if (std::any_of(types.begin(), types.end(), isIt)) return;
  if (types.empty()) throw Refusal(kNotFound, {MessageId::kUnknownTypeOfNone, Shown(text)});
  throw Refusal(kNotFound, {MessageId::kUnknownType, Shown(text), Listed(catalogue::NearestTexts(types, text))});
}

/// Degrees above the octave may come before lower ones; each pitch has to be above the one before.
std::vector<theory::Pitch> Ascending(std::vector<theory::Pitch> pitches) {
  for (std::size_t i = 1; i < pitches.size(); ++i) {
    while (pitches[i] <= pitches[i - 1]) pitches[i] = pitches[i].Up(theory::kSemitonesPerOctave);
  }
  return pitches;
}

}  // namespace

std::vector<ListedEntry> ListEntries(const Catalogue& catalogue, const Options& options) {
  if (options.type) RequireType(catalogue, *options.type);
  const std::u32string type = catalogue::Fold(options.type.value_or(""));
  catalogue::WordSearch search(options.text);
  std::vector<ListedEntry> entries;
  for (std::size_t i = 0; i < catalogue.Size(); ++i) {
    const catalogue::Entry entry = catalogue.At(i);
    const bool isChord = entry.kind == theory::SetKind::kChord;
    if ((options.onlyChords && !isChord) || (options.onlyScales && isChord)) continue;
    if (options.type && catalogue::Fold(entry.type) != type) continue;
    if (!search.Matches(catalogue, i)) continue;
    entries.push_back({entry.id, std::string(entry.name), std::string(entry.type), isChord, entry.pattern,
                       catalogue.FormulaAt(i), AsciiAliases(catalogue, i)});
  }
  return entries;
}

ShownMusic ShowMusic(const Catalogue& catalogue, const Options& options) {
  const Music music = ReadMusic(catalogue, options);
  const theory::Key key = theory::KeyOf(music.tonic, music.formula, music.kind);
  ShownMusic shown;
  shown.name = music.name;
  shown.key = music.tonic;
  shown.alternative = key.alternative;
  shown.pattern = music.formula.Set().Pattern().value_or("");
  shown.notes = theory::Spell(music.tonic, music.formula);
  shown.formula = music.formula;
  const theory::Pitch tonic = theory::Pitch(kMiddleC).NextUp(music.tonic.PitchClass());
  shown.pitches = Ascending(music.formula.PitchesFrom(tonic));
  shown.keySignature = key.signature;
  if (music.entry) {
    shown.description = catalogue.DescriptionAt(*music.entry);
    shown.aliases = AsciiAliases(catalogue, *music.entry);
  }
  return shown;
}

}  // namespace tonalith::cli
