// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The command name: from notes or frets to chords and scales.

#include <algorithm>
#include <array>
#include <string_view>

#include "cli/commands.h"
#include "cli/typed_music.h"
#include "theory/chord_finder.h"
#include "theory/key.h"
#include "theory/scale_finder.h"
#include "theory/spelling.h"

namespace tonalith::cli {
namespace {

using catalogue::Catalogue;
using theory::NoteName;
using theory::PitchClassSet;

/// Whether a set is one of the rotations of a pattern.
bool IsModeOf(PitchClassSet notes, std::string_view pattern) {
  const PitchClassSet parent = *PitchClassSet::FromPattern(pattern);
  for (int mode = 0; mode < parent.Size(); ++mode) {
    if (parent.Mode(mode) == notes) return true;
  }
  return false;
}

/// 0 for the scales that beginners learn. Packs are rarer than the library.
int RarityOf(PitchClassSet notes, bool isOfLibrary) {
  static constexpr std::array<std::string_view, 2> kFirst = {"2212221", "32232"};
  static constexpr std::array<std::string_view, 3> kSecond = {"2122131", "2122221", "321132"};
  const auto isMode = [&](std::string_view pattern) { return IsModeOf(notes, pattern); };
  if (!isOfLibrary) return 3;
  if (std::any_of(kFirst.begin(), kFirst.end(), isMode)) return 0;
  return std::any_of(kSecond.begin(), kSecond.end(), isMode) ? 1 : 2;
}

/// The scales of a catalogue as entries of an index.
struct Scales {
  std::vector<std::size_t> indexes;
  std::vector<theory::ScaleEntry> entries;
};

Scales ScalesOf(const Catalogue& catalogue) {
  // Many entries share a pattern.
  std::array<std::array<int, PitchClassSet::kCount>, 2> known{};
  Scales scales;
  for (std::size_t i = 0; i < catalogue.Size(); ++i) {
    const PitchClassSet notes = catalogue.NotesAt(i);
    if (catalogue.KindAt(i) != theory::SetKind::kScale || notes.IsEmpty()) continue;
    const bool isOfLibrary = catalogue.IsOfLibrary(i);
    int& rarity = known[isOfLibrary ? 1 : 0][notes.Bits()];
    if (rarity == 0) rarity = RarityOf(notes, isOfLibrary) + 1;
    scales.indexes.push_back(i);
    scales.entries.push_back({{}, notes, rarity});
  }
  return scales;
}

/// A typed name of the tonic precedes the usual one.
NoteName TonicName(theory::PitchClass tonic, const theory::Formula& formula, const std::vector<NoteName>& typed) {
  const auto isIt = [&](NoteName name) { return name.PitchClass() == tonic; };
  const auto found = std::find_if(typed.begin(), typed.end(), isIt);
  return found != typed.end() ? *found : theory::ConventionalTonic(tonic, formula, theory::SetKind::kScale);
}

NamedScale ScaleOf(const Catalogue& catalogue, std::size_t index, theory::PitchClass tonic, PitchClassSet extra,
                   const std::vector<NoteName>& typed) {
  const theory::Formula formula = catalogue.FormulaAt(index);
  NamedScale scale{std::string(catalogue.NameAt(index)), TonicName(tonic, formula, typed), {}};
  for (const NoteName name : theory::Spell(scale.key, formula)) {
    if (extra.Contains(name.PitchClass())) scale.extra.push_back(name);
  }
  return scale;
}

std::vector<NamedScale> FindScales(const Catalogue& catalogue, const theory::Sounding& sounding, int limit) {
  Scales scales = ScalesOf(catalogue);
  const theory::ScaleIndex index(std::move(scales.entries));
  std::vector<NamedScale> found;
  for (const theory::ScaleGroup& group : index.Containing(sounding.notes, sounding.bass)) {
    for (const theory::ScaleMatch& match : group.matches) {
      if (!group.extra.IsEmpty() && found.size() >= static_cast<std::size_t>(limit)) return found;
      found.push_back(ScaleOf(catalogue, scales.indexes[match.entry], match.tonic, group.extra, sounding.typed));
    }
  }
  return found;
}

/// The name of a sounding note in the best chord.
NoteName NameIn(const std::vector<theory::ChordName>& chords, theory::PitchClass note) {
  if (!chords.empty()) {
    const theory::ChordName& chord = chords.front();
    std::vector<NoteName> names = theory::Spell(chord.root, chord.type->formula);
    if (chord.bass) names.push_back(*chord.bass);
    names.insert(names.end(), chord.added.begin(), chord.added.end());
    const auto isIt = [&](NoteName name) { return name.PitchClass() == note; };
    const auto found = std::find_if(names.begin(), names.end(), isIt);
    if (found != names.end()) return *found;
  }
  return theory::SharpName(note);
}

}  // namespace

NamedNotes NameNotes(const Catalogue& catalogue, const Options& options) {
  NamedNotes named;
  theory::Sounding sounding;
  const bool isFrets = options.instrument || LooksLikeFrets(options.text);
  const std::vector<theory::Pitch> pitches = isFrets ? ReadFrets(options) : std::vector<theory::Pitch>();
  if (isFrets) {
    sounding = theory::Sounding::FromPitches(pitches);
  } else {
    named.notes = ReadNotes(options);
    sounding = theory::Sounding::FromNames(named.notes);
  }
  named.chords =
      theory::FindChordNames(sounding, std::min(static_cast<std::size_t>(options.limit), theory::kMostChordNames));
  for (const theory::Pitch pitch : pitches) {
    const NoteName name = NameIn(named.chords, pitch.Class());
    if (std::find(named.notes.begin(), named.notes.end(), name) == named.notes.end()) named.notes.push_back(name);
  }
  named.scales = FindScales(catalogue, sounding, options.limit);
  return named;
}

}  // namespace tonalith::cli
