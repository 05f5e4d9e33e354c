// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What a command line asks for, and its parser. Options are accepted before and after the command.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "theory/note_style.h"

namespace tonalith::cli {

/// Exit codes of the program.
inline constexpr int kSuccess = 0;
inline constexpr int kNotFound = 1;
inline constexpr int kWrongUsage = 2;

/// More than any neck has shapes of one chord.
inline constexpr int kMostLimit = 10'000;

enum class Command : std::uint8_t { kList, kShow, kName, kShapes, kPositions, kChords, kInstruments };
enum class PositionSystem : std::uint8_t { kBoxes, kPerString };

struct Options {
  Command command = Command::kList;
  bool json = false;
  /// The notes of plain answers, and the meaning of B in typed notes.
  theory::NoteStyle style;
  /// This file alone; empty for the library and the packs of the program.
  std::string library;
  /// The words after the command, joined by blanks.
  std::string text;
  std::optional<std::string> key;
  std::optional<std::string> instrument;
  std::optional<std::string> type;
  bool onlyChords = false;
  bool onlyScales = false;
  int limit = 20;
  PositionSystem system = PositionSystem::kBoxes;
  std::optional<int> notesPerString;
};

/// The end of the program without a command: help, the version, or wrong usage.
struct Exit {
  int code = kSuccess;
  std::string output;
  std::string error;
};

/// `arguments` without the name of the program; any bytes. Throws Refusal for options that contradict each other.
[[nodiscard]] std::variant<Options, Exit> ReadOptions(const std::vector<std::string>& arguments);

}  // namespace tonalith::cli
