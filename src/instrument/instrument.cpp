// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/instrument.h"

#include <algorithm>
#include <utility>

namespace tonalith::instrument {
namespace {

/// Whether all frets of a string are pitches of MIDI.
bool IsInRange(theory::Pitch open, int frets) { return open.IsMidi() && open.Up(frets).IsMidi(); }

std::optional<SetupProblem> ProblemOf(const String& string, int frets) {
  if (string.firstFret < 0 || string.firstFret >= frets) return SetupProblem::kFirstFretOutOfRange;
  const int stopped = frets - string.firstFret;
  if (!IsInRange(string.open, stopped)) return SetupProblem::kPitchOutOfRange;
  if (string.companion && !IsInRange(*string.companion, stopped)) return SetupProblem::kPitchOutOfRange;
  return std::nullopt;
}

}  // namespace

std::string_view Text(SetupProblem problem) {
  switch (problem) {
    case SetupProblem::kNameTooLong:
      return "The name of an instrument has at most 200 bytes";
    case SetupProblem::kNoStrings:
      return "An instrument has at least one string";
    case SetupProblem::kTooManyStrings:
      return "An instrument has at most 10 strings";
    case SetupProblem::kFretsOutOfRange:
      return "An instrument has 1 to 36 frets";
    case SetupProblem::kCapoOutOfRange:
      return "A capo is on frets 1 to 12, below the last fret";
    case SetupProblem::kFirstFretOutOfRange:
      return "A string begins at the nut or at a fret below the last one";
    case SetupProblem::kPitchOutOfRange:
      return "The string is too low or too high: all its frets are MIDI notes from 0 to 127";
  }
  return "";
}

std::optional<SetupError> Instrument::ErrorIn(const InstrumentSetup& setup) {
  const auto error = [](SetupProblem problem) { return SetupError{problem, std::nullopt}; };
  if (setup.name.size() > kMostNameBytes) return error(SetupProblem::kNameTooLong);
  if (setup.strings.empty()) return error(SetupProblem::kNoStrings);
  if (setup.strings.size() > kMostStrings) return error(SetupProblem::kTooManyStrings);
  if (setup.frets < 1 || setup.frets > kMostFrets) return error(SetupProblem::kFretsOutOfRange);
  if (setup.capo < 0 || setup.capo > kHighestCapo || setup.capo >= setup.frets) {
    return error(SetupProblem::kCapoOutOfRange);
  }
  for (std::size_t i = 0; i < setup.strings.size(); ++i) {
    if (const auto problem = ProblemOf(setup.strings[i], setup.frets)) return SetupError{*problem, i};
  }
  return std::nullopt;
}

std::optional<Instrument> Instrument::Make(InstrumentSetup setup) {
  if (ErrorIn(setup)) return std::nullopt;
  return Instrument(std::move(setup));
}

int Instrument::FirstFret(int string) const {
  return std::max(setup_.strings.at(static_cast<std::size_t>(string)).firstFret - setup_.capo, 0);
}

theory::Pitch Instrument::Open(int string) const {
  const String& described = setup_.strings.at(static_cast<std::size_t>(string));
  return described.open.Up(std::max(setup_.capo - described.firstFret, 0));
}

std::optional<theory::Pitch> Instrument::PitchAt(int string, int fret) const {
  if (string < 0 || string >= Strings() || fret < 0 || fret > Frets()) return std::nullopt;
  const int first = FirstFret(string);
  if (fret == 0) return Open(string);
  if (fret <= first) return std::nullopt;
  return Open(string).Up(fret - first);
}

std::optional<int> Instrument::FretOf(int string, theory::Pitch pitch) const {
  if (string < 0 || string >= Strings()) return std::nullopt;
  const int above = pitch.Midi() - Open(string).Midi();
  if (above < 0) return std::nullopt;
  const int fret = above == 0 ? 0 : above + FirstFret(string);
  return fret <= Frets() ? std::optional(fret) : std::nullopt;
}

std::vector<int> Instrument::LongStringsByPitch() const {
  std::vector<int> strings;
  for (int string = 0; string < Strings(); ++string) {
    if (FirstFret(string) == 0) strings.push_back(string);
  }
  std::stable_sort(strings.begin(), strings.end(), [this](int a, int b) { return Open(a) < Open(b); });
  return strings;
}

}  // namespace tonalith::instrument
