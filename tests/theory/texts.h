// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Short texts for tables of notes, written and read by code of the tests alone, so that an error of the room shows.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "theory/formula.h"
#include "theory/note_name.h"

namespace tonalith::theory::tests {

/// The words of a text, separated by blanks.
std::vector<std::string> Words(std::string_view text);

/// "C Eb G" for names, counted without the room's writer.
std::string NamesText(const std::vector<NoteName>& names);

/// "Bb", "F##"; fails the test for other texts.
NoteName Name(std::string_view text);

/// The pitch class that a note means, counted without the room: 10 for Bb.
int PitchClassOf(NoteName note);

/// Fails the test if the text is not a formula.
Formula FormulaOf(std::string_view text);

}  // namespace tonalith::theory::tests
