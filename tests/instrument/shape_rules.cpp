// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/shape_rules.h"

#include <algorithm>
#include <array>
#include <map>

namespace tonalith::instrument::tests {
namespace {

constexpr int kNoLimit = 1000;

bool IsStopped(Fret fret) { return fret.has_value() && *fret > 0; }

/// The fewest fingers for the stopped strings from `first` on that are not in `covered`, one bit per string.
int FewestFrom(const Frets& frets, std::size_t first, unsigned covered) {
  while (first < frets.size() && (!IsStopped(frets[first]) || (covered >> first & 1U) != 0)) ++first;
  if (first >= frets.size()) return 0;
  const int fret = *frets[first];
  int fewest = kNoLimit;
  // A barre over this string and all up to `last`, which may be the same string.
  for (std::size_t last = first; last < frets.size(); ++last) {
    if (!IsStopped(frets[last]) || *frets[last] < fret) break;
    if (*frets[last] != fret) continue;
    covered |= 1U << last;
    fewest = std::min(fewest, 1 + FewestFrom(frets, first + 1, covered));
  }
  return fewest;
}

struct Sound {
  int lowest = kNoLimit;
  /// How often each note of an octave sounds.
  std::array<int, 12> notes{};
};

std::optional<Sound> SoundOf(const Instrument& instrument, const Frets& frets) {
  Sound sound;
  for (int string = 0; string < instrument.Strings(); ++string) {
    const Fret fret = frets.at(static_cast<std::size_t>(string));
    if (!fret) continue;
    const auto pitch = instrument.PitchAt(string, *fret);
    if (!pitch) return std::nullopt;
    sound.lowest = std::min(sound.lowest, pitch->Midi());
    ++sound.notes.at(static_cast<std::size_t>(pitch->Midi() % 12));
  }
  return sound;
}

int Times(const Sound& sound, int note) { return sound.notes.at(static_cast<std::size_t>(note)); }

/// The omittable notes of this number of strings: the root is one if the others are too many.
std::vector<int> Omittable(const RuledChord& type, int strings, bool hasForeignBass) {
  std::vector<int> omittable = type.omittable;
  const int required = static_cast<int>(type.all.size() - omittable.size()) + (hasForeignBass ? 1 : 0);
  if (required > strings && type.all.count(0) != 0) omittable.push_back(0);
  return omittable;
}

std::string BrokenRuleOfNotes(const RuledShapes& shapes, const Sound& sound) {
  const RuledChord& type = *shapes.type;
  const auto above = [&](int note) { return (note - shapes.root + 12) % 12; };
  const bool hasForeignBass = shapes.bass && type.all.count(above(*shapes.bass)) == 0;
  if (shapes.bass && sound.lowest % 12 != *shapes.bass) return "the bass is not the requested one";
  if (hasForeignBass && Times(sound, *shapes.bass) > 1) return "the foreign bass sounds twice";
  std::set<int> missing = type.all;
  for (int note = 0; note < 12; ++note) {
    if (Times(sound, note) == 0 || (hasForeignBass && note == *shapes.bass)) continue;
    if (type.all.count(above(note)) == 0) return "a note is not in the chord";
    missing.erase(above(note));
  }
  for (const int note : Omittable(type, shapes.instrument->Strings(), hasForeignBass)) {
    if (missing.erase(note) == 0) break;
  }
  return missing.empty() ? "" : "a note is missing";
}

std::string BrokenRuleOfHand(const Frets& frets, int highestFret) {
  for (const Fret fret : frets) {
    if (fret && (*fret < 0 || *fret > highestFret)) return "a fret is out of range";
  }
  if (SpanOf(frets) > (LowestStopped(frets) >= 5 ? 4 : 3)) return "the span is too wide";
  if (InnerMutedStrings(frets) > 1) return "two inner strings are muted";
  return FewestFingers(frets) > 4 ? "more than four fingers" : "";
}

}  // namespace

const std::vector<RuledChord>& RuledChords() {
  static const std::vector<RuledChord> chords = {
      {"1 3 5", {0, 4, 7}, {}},
      {"1 b3 5", {0, 3, 7}, {}},
      {"1 b3 b5", {0, 3, 6}, {}},
      {"1 4 5", {0, 5, 7}, {}},
      {"1 5", {0, 7}, {}},
      {"1 3 5 6", {0, 4, 7, 9}, {7}},
      {"1 3 5 b7", {0, 4, 7, 10}, {7}},
      {"1 3 5 7", {0, 4, 7, 11}, {7}},
      {"1 b3 5 b7", {0, 3, 7, 10}, {7}},
      {"1 b3 b5 b7", {0, 3, 6, 10}, {}},
      {"1 b3 b5 bb7", {0, 3, 6, 9}, {}},
      {"1 4 5 b7", {0, 5, 7, 10}, {7}},
      {"1 3 5 9", {0, 4, 7, 2}, {7}},
      {"1 3 5 b7 9", {0, 4, 7, 10, 2}, {7}},
      {"1 3 5 b7 #9", {0, 4, 7, 10, 3}, {7}},
      {"1 3 #5 b7 #9", {0, 4, 8, 10, 3}, {}},
      {"1 3 5 6 9", {0, 4, 7, 9, 2}, {7}},
      {"1 b3 5 b7 9 11", {0, 3, 7, 10, 2, 5}, {7, 2}},
      {"1 3 5 7 9 #11", {0, 4, 7, 11, 2, 6}, {7}},
      {"1 3 5 b7 9 13", {0, 4, 7, 10, 2, 9}, {7, 2}},
      {"1 b3 5 b7 9 11 13", {0, 3, 7, 10, 2, 5, 9}, {7, 5, 2}},
  };
  return chords;
}

int FewestFingers(const Frets& frets) { return FewestFrom(frets, 0, 0); }

int InnerMutedStrings(const Frets& frets) {
  int inner = 0;
  for (std::size_t i = 0; i < frets.size(); ++i) {
    const auto isSounding = [](Fret fret) { return fret.has_value(); };
    const auto here = frets.begin() + static_cast<std::ptrdiff_t>(i);
    const bool isInside = std::any_of(frets.begin(), here, isSounding) && std::any_of(here, frets.end(), isSounding);
    if (!frets[i] && isInside) ++inner;
  }
  return inner;
}

int LowestStopped(const Frets& frets) {
  int lowest = kNoLimit;
  for (const Fret fret : frets) lowest = IsStopped(fret) ? std::min(lowest, *fret) : lowest;
  return lowest == kNoLimit ? 0 : lowest;
}

int SpanOf(const Frets& frets) {
  int highest = 0;
  for (const Fret fret : frets) highest = std::max(highest, fret.value_or(0));
  return highest - LowestStopped(frets);
}

bool IsPart(const Frets& part, const Frets& whole) {
  for (std::size_t i = 0; i < part.size(); ++i) {
    if (part[i] && part[i] != whole[i]) return false;
  }
  return part != whole;
}

std::string WrongFingering(const Frets& frets, const Fingering& fingering) {
  if (fingering.fingers.size() != frets.size()) return "not one finger per string";
  std::map<int, std::vector<std::size_t>> strings;
  for (std::size_t i = 0; i < frets.size(); ++i) {
    const int finger = fingering.fingers[i];
    if (finger < 0 || finger > 4) return "no such finger";
    if (IsStopped(frets[i]) != (finger > 0)) return "a stopped string without finger, or the reverse";
    if (finger > 0) strings[finger].push_back(i);
  }
  std::vector<Barre> barres;
  int lastFret = 0;
  for (const auto& [finger, stopped] : strings) {
    const int fret = *frets[stopped.front()];
    if (fret < lastFret) return "a further finger at a lower fret";
    lastFret = fret;
    for (std::size_t i = stopped.front(); i <= stopped.back(); ++i) {
      if (!IsStopped(frets[i]) || *frets[i] < fret) return "a string under a barre is not stopped at it or above";
    }
    for (const std::size_t i : stopped) {
      if (*frets[i] != fret) return "one finger on two frets";
    }
    if (stopped.size() > 1) {
      barres.push_back({fret, static_cast<int>(stopped.front()), static_cast<int>(stopped.back())});
    }
  }
  if (barres != fingering.barres) return "the barres are not those of the fingers";
  return fingering.count == static_cast<int>(strings.size()) ? "" : "the number of fingers is wrong";
}

std::string RuledShapes::BrokenRule(const Frets& frets) const {
  std::string broken = BrokenRuleOfHand(frets, highestFret);
  if (!broken.empty()) return broken;
  const auto sound = SoundOf(*instrument, frets);
  if (!sound) return "the instrument has no such fret";
  return sound->lowest == kNoLimit ? "all strings are muted" : BrokenRuleOfNotes(*this, *sound);
}

int RuledShapes::Omitted(const Frets& frets) const {
  int omitted = 0;
  const Sound sound = SoundOf(*instrument, frets).value();
  for (const int note : type->all) omitted += Times(sound, (root + note) % 12) == 0 ? 1 : 0;
  return omitted;
}

int RuledShapes::BassOf(const Frets& frets) const { return SoundOf(*instrument, frets)->lowest % 12; }

std::optional<Frets> RuledShapes::OctaveBelow(const Frets& frets) const {
  Frets below = frets;
  for (int string = 0; string < instrument->Strings(); ++string) {
    Fret& fret = below.at(static_cast<std::size_t>(string));
    if (!fret) continue;
    const auto pitch = instrument->PitchAt(string, *fret);
    std::optional<int> found;
    for (int lower = 0; lower < *fret; ++lower) {
      const auto candidate = instrument->PitchAt(string, lower);
      if (candidate && candidate->Midi() == pitch->Midi() - 12) found = lower;
    }
    if (!found) return std::nullopt;
    fret = found;
  }
  return below;
}

std::set<Frets> RuledShapes::All() const {
  std::set<int> allowed;
  for (const int note : type->all) allowed.insert((root + note) % 12);
  if (bass) allowed.insert(*bass);
  std::vector<std::vector<Fret>> choices;
  for (int string = 0; string < instrument->Strings(); ++string) {
    std::vector<Fret>& choice = choices.emplace_back(1);
    for (int fret = 0; fret <= highestFret; ++fret) {
      const auto pitch = instrument->PitchAt(string, fret);
      if (pitch && allowed.count(pitch->Midi() % 12) != 0) choice.emplace_back(fret);
    }
  }
  std::set<Frets> shapes;
  std::vector<std::size_t> places(choices.size(), 0);
  Frets frets(choices.size());
  for (std::size_t string = 0; string < choices.size();) {
    if (BrokenRule(frets).empty()) shapes.insert(frets);
    // Counts with one digit per string.
    for (string = 0; string < choices.size(); ++string) {
      places[string] = (places[string] + 1) % choices[string].size();
      frets[string] = choices[string][places[string]];
      if (places[string] != 0) break;
    }
  }
  std::set<Frets> lowest;
  for (const Frets& shape : shapes) {
    const auto below = OctaveBelow(shape);
    if (!below || shapes.count(*below) == 0) lowest.insert(shape);
  }
  return lowest;
}

}  // namespace tonalith::instrument::tests
