// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The frets of a shape, one for each string in the order of the strings, and their text: one character for each string
// (x32010) or numbers separated by hyphens (x-10-12-12-11-10).

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "instrument/instrument.h"
#include "theory/pitch.h"

namespace tonalith::instrument {

/// A fret from the capo, 0 for the open string, nothing for a muted string.
using Fret = std::optional<int>;
using Frets = std::vector<Fret>;

enum class FretsProblem : std::uint8_t { kEmpty, kUnknownCharacter, kFretTooHigh, kTooManyStrings, kFretMissing };

/// One English sentence without its full stop.
[[nodiscard]] std::string_view Text(FretsProblem problem);

struct FretsError {
  FretsProblem problem = FretsProblem::kEmpty;
  /// The byte at which reading stopped, from 0.
  std::size_t byte = 0;

  bool operator==(const FretsError&) const = default;
};

/// Reads either text. A muted string is x or X. Without hyphens every digit is a fret of its own.
[[nodiscard]] std::variant<Frets, FretsError> ParseFrets(std::string_view text);

/// The text without hyphens if all frets are below 10, else the one with hyphens.
[[nodiscard]] std::string ToText(const Frets& frets);

/// The pitches of the sounding strings in the order of the strings; a companion string is left out. Nothing if the
/// instrument has another number of strings, or lacks one of the frets.
[[nodiscard]] std::optional<std::vector<theory::Pitch>> PitchesOf(const Instrument& instrument, const Frets& frets);

}  // namespace tonalith::instrument
