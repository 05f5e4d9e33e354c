// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/frets.h"

#include <algorithm>

namespace tonalith::instrument {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsMuteSign(char c) { return c == 'x' || c == 'X'; }

/// Removes one fret from the beginning of `text`, with as many digits as `digits` allows. The byte of an error is
/// relative to `text`.
std::variant<Fret, FretsError> TakeFret(std::string_view& text, std::size_t digits) {
  if (text.empty() || text.front() == '-') return FretsError{FretsProblem::kFretMissing, 0};
  if (IsMuteSign(text.front())) {
    text.remove_prefix(1);
    return Fret();
  }
  if (!IsDigit(text.front())) return FretsError{FretsProblem::kUnknownCharacter, 0};
  int fret = 0;
  for (std::size_t i = 0; i < digits && !text.empty() && IsDigit(text.front()); ++i) {
    fret = 10 * fret + (text.front() - '0');
    if (fret > Instrument::kMostFrets) return FretsError{FretsProblem::kFretTooHigh, 0};
    text.remove_prefix(1);
  }
  return Fret(fret);
}

}  // namespace

std::string_view Text(FretsProblem problem) {
  switch (problem) {
    case FretsProblem::kEmpty:
      return "There are no frets";
    case FretsProblem::kUnknownCharacter:
      return "Frets are written with digits, x for a muted string, and hyphens";
    case FretsProblem::kFretTooHigh:
      return "The highest fret is 36";
    case FretsProblem::kTooManyStrings:
      return "There are at most 10 strings";
    case FretsProblem::kFretMissing:
      return "A fret is missing";
  }
  return "";
}

std::variant<Frets, FretsError> ParseFrets(std::string_view text) {
  if (text.empty()) return FretsError{FretsProblem::kEmpty, 0};
  const bool hasHyphens = text.find('-') != std::string_view::npos;
  std::string_view rest = text;
  const auto byte = [&] { return text.size() - rest.size(); };
  Frets frets;
  while (true) {
    if (frets.size() == static_cast<std::size_t>(Instrument::kMostStrings)) {
      return FretsError{FretsProblem::kTooManyStrings, byte()};
    }
    const std::size_t start = byte();
    const auto fret = TakeFret(rest, hasHyphens ? text.size() : 1);
    if (const auto* error = std::get_if<FretsError>(&fret)) return FretsError{error->problem, start};
    frets.push_back(std::get<Fret>(fret));
    if (rest.empty()) return frets;
    if (!hasHyphens) continue;
    if (rest.front() != '-') return FretsError{FretsProblem::kUnknownCharacter, byte()};
    rest.remove_prefix(1);
  }
}

std::string ToText(const Frets& frets) {
  constexpr int kFirstOfTwoDigits = 10;
  const bool hasHyphens =
      std::any_of(frets.begin(), frets.end(), [](Fret fret) { return fret && *fret >= kFirstOfTwoDigits; });
  std::string text;
  for (const Fret fret : frets) {
    if (hasHyphens && !text.empty()) text += '-';
    text += fret ? std::to_string(*fret) : "x";
  }
  return text;
}

std::optional<std::vector<theory::Pitch>> PitchesOf(const Instrument& instrument, const Frets& frets) {
  if (frets.size() != static_cast<std::size_t>(instrument.Strings())) return std::nullopt;
  std::vector<theory::Pitch> pitches;
  for (int string = 0; string < instrument.Strings(); ++string) {
    const Fret fret = frets[static_cast<std::size_t>(string)];
    if (!fret) continue;
    const auto pitch = instrument.PitchAt(string, *fret);
    if (!pitch) return std::nullopt;
    pitches.push_back(*pitch);
  }
  return pitches;
}

}  // namespace tonalith::instrument
