// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// An instrument as a player holds it: strings, frets, capo. Every Instrument is valid: Make refuses all others. Strings
// are numbered by index, 0 is next to the player's face; the last one is string 1 of a chord chart. This order need not
// be the order of the pitches. Frets count from the capo, and 0 is the open string.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "theory/pitch.h"

namespace tonalith::instrument {

/// How the neck is drawn. Independent of the player's hand.
enum class Orientation : std::uint8_t { kHighStringOnTop, kLowStringOnTop };

/// A string, or the two strings of a course, which are stopped together.
struct String {
  /// Without the capo. The lower string of a course.
  theory::Pitch open;
  /// The fret at which the string begins, from the nut: 5 for the fifth string of a banjo.
  int firstFret = 0;
  /// The other string of a double course. It sounds, but does not decide what the bass is.
  std::optional<theory::Pitch> companion;

  bool operator==(const String&) const = default;
};

/// What describes an instrument; not yet checked.
struct InstrumentSetup {
  std::string name;
  std::vector<String> strings;
  /// From the nut, without the open string.
  int frets = 0;
  /// The fret of the capo, 0 for none.
  int capo = 0;
  bool isLeftHanded = false;
  Orientation orientation = Orientation::kHighStringOnTop;

  bool operator==(const InstrumentSetup&) const = default;
};

enum class SetupProblem : std::uint8_t {
  kNameTooLong,
  kNoStrings,
  kTooManyStrings,
  kFretsOutOfRange,
  kCapoOutOfRange,
  kFirstFretOutOfRange,
  kPitchOutOfRange,
};

/// One English sentence without its full stop.
[[nodiscard]] std::string_view Text(SetupProblem problem);

struct SetupError {
  SetupProblem problem = SetupProblem::kNoStrings;
  /// The index of the string that the problem is about, if it is about one.
  std::optional<std::size_t> string;

  bool operator==(const SetupError&) const = default;
};

class Instrument {
 public:
  /// As many as a neck can be drawn with.
  static constexpr int kMostStrings = 10;
  /// Three octaves; longer necks are not built.
  static constexpr int kMostFrets = 36;
  /// Half of a neck of two octaves. Some frets must remain above it.
  static constexpr int kHighestCapo = 12;
  /// As much as a line of a chooser shows, in any script.
  static constexpr std::size_t kMostNameBytes = 200;

  /// The first problem of a setup.
  [[nodiscard]] static std::optional<SetupError> ErrorIn(const InstrumentSetup& setup);
  /// Nothing if ErrorIn finds a problem.
  [[nodiscard]] static std::optional<Instrument> Make(InstrumentSetup setup);

  [[nodiscard]] const InstrumentSetup& Description() const { return setup_; }
  [[nodiscard]] const std::string& Name() const { return setup_.name; }
  [[nodiscard]] int Strings() const { return static_cast<int>(setup_.strings.size()); }
  /// The highest fret, from the capo.
  [[nodiscard]] int Frets() const { return setup_.frets - setup_.capo; }

  /// The fret at which a string begins, from the capo; 0 if it reaches the nut or the capo.
  [[nodiscard]] int FirstFret(int string) const;
  /// The open string, stopped by the capo if it reaches the capo.
  [[nodiscard]] theory::Pitch Open(int string) const;
  /// Nothing where there is no such string or fret. A short string has no frets up to its first one.
  [[nodiscard]] std::optional<theory::Pitch> PitchAt(int string, int fret) const;
  /// The fret of a pitch on a string; the inverse of PitchAt.
  [[nodiscard]] std::optional<int> FretOf(int string, theory::Pitch pitch) const;

  /// The number of a string in a chord chart: 1 for the last one.
  [[nodiscard]] int NumberOf(int string) const { return Strings() - string; }
  /// The indices of the strings from nut to bridge in ascending order of pitch, without the short ones. Strings in
  /// unison are in the order of their indices.
  [[nodiscard]] std::vector<int> LongStringsByPitch() const;

  bool operator==(const Instrument&) const = default;

 private:
  explicit Instrument(InstrumentSetup setup) : setup_(std::move(setup)) {}

  InstrumentSetup setup_;
};

}  // namespace tonalith::instrument
