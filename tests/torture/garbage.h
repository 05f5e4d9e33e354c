// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What somebody types who does not care: names, patterns, numbers and search texts, sensible ones and others, in all
// writings. UTF-8, without control characters. Pure functions of the dice.

#pragma once

#include <string>

#include "torture/dice.h"

namespace tonalith::torture {

/// Any characters, at most `longest`.
std::string AnyText(Dice& dice, int longest);
/// Mostly a name that no scale has yet.
std::string AnyName(Dice& dice);
/// Mostly a pattern that sums to an octave.
std::string AnyPattern(Dice& dice);
std::string AnyNumber(Dice& dice);
/// Mostly a note name.
std::string AnyKey(Dice& dice);
/// With wildcards and lists, closed and open.
std::string AnySearch(Dice& dice);

}  // namespace tonalith::torture
