// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The note model: the twelve note names, their numbers, and the numbering of staff positions. Pitch classes only. Black
// keys have sharp names. Names are compared exactly. Functions with a MsgBox report a bad index in it; the others state
// their result for a bad argument.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/msg_box.h"

namespace tonalith::core {

/// Index into the sharp note table, 0 (C) to 11 (B).
using NoteNumber = std::int16_t;

inline constexpr std::array<std::string_view, 12> kSharpNotes = {"C",  "C#", "D",  "D#", "E",  "F",
                                                                 "F#", "G",  "G#", "A",  "A#", "B"};

/// The chromatic run from the bottom line of a treble staff (E) to its top line (F).
inline constexpr std::array<std::string_view, 14> kStaffNotes = {"E", "F", "F#", "G", "G#", "A", "A#",
                                                                 "B", "C", "C#", "D", "D#", "E", "F"};

/// The note number of a name; 0 for anything that is no note name.
NoteNumber CNoteToNumber(std::string_view strNoteToConvert);

/// The name of a note number. Outside 0..11: one message, empty text.
std::string CNumberToNote(std::int16_t intNumberToConvert, MsgBox& msgBox);

/// CNumberToNote without a message: outside 0..11 the text is empty.
std::string CNumberToScore(std::int16_t noteNumber);

/// The staff note one entry above a score number, -1..12 (-1 is the E of the bottom line). Outside: one message, empty
/// text.
/// Kept: see docs/behaviour.md, Functions without callers.
std::string CNumberToScoreNote(std::int16_t intNumberToConvert, MsgBox& msgBox);

/// The score number of a name: its last entry in the staff table (E is 12, F is 13), 0 if there is none.
/// Kept: see docs/behaviour.md, Functions without callers.
std::int16_t CNoteToScoreNumber(std::string_view strNoteToConvert);

/// The letter 0..6 (C D E F G A B) of a note number's sharp spelling. Throws failure 9 outside 0..11.
std::int16_t NaturalIndex(std::int16_t pc);

}  // namespace tonalith::core
