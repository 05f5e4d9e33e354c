// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What somebody types who does not care: names, patterns, numbers and search texts, sensible ones and others, in all
// writings. UTF-8, without control characters. Pure functions of the dice.

#pragma once

#include <string>

#include "stress/random_source.h"

namespace tonalith::stress {

/// Any characters, at most `longest`.
std::string AnyText(RandomSource& dice, int longest);
/// Mostly a name that no scale has yet.
std::string AnyName(RandomSource& dice);
/// Mostly a pattern that sums to an octave.
std::string AnyPattern(RandomSource& dice);
std::string AnyNumber(RandomSource& dice);
/// Mostly a note name.
std::string AnyKey(RandomSource& dice);
/// With wildcards and lists, closed and open.
std::string AnySearch(RandomSource& dice);

}  // namespace tonalith::stress
