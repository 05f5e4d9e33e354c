// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The note model: the twelve note names, their numbers, and the numbering of staff positions. Pitch classes only, every
// black key spelt with a sharp, names compared exactly. Pure functions over constant tables; the loud ones report a bad
// index through the message box they are given and return what they have, the quiet ones say in their line what a bad
// argument gives.

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

/// The quiet twin of CNumberToNote: outside 0..11 it gives empty text and says nothing.
std::string CNumberToScore(std::int16_t noteNumber);

/// The staff note one entry above a score number, -1..12 (so -1 is the bottom line's E). Outside: one message, empty.
std::string CNumberToScoreNote(std::int16_t intNumberToConvert, MsgBox& msgBox);

/// The score number of a name: the last entry of the staff table that bears it (E is 12, F is 13), 0 if none does.
std::int16_t CNoteToScoreNumber(std::string_view strNoteToConvert);

/// The letter 0..6 (C D E F G A B) of a note number's sharp spelling. Throws failure 9 outside 0..11.
std::int16_t NaturalIndex(std::int16_t pc);

}  // namespace tonalith::core
