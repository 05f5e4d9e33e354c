// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Random input texts: names, patterns, numbers and search texts, valid and invalid, in several scripts. UTF-8, without
// control characters.

#pragma once

#include <string>

#include "stress/random_source.h"

namespace tonalith::stress {

/// At most `longest` fragments of one or a few characters.
std::string AnyText(RandomSource& random, int longest);
/// Usually a new name.
std::string AnyName(RandomSource& random);
/// Usually a pattern that sums to an octave.
std::string AnyPattern(RandomSource& random);
std::string AnyNumber(RandomSource& random);
/// Usually a note name.
std::string AnyKey(RandomSource& random);
/// May contain wildcards and character lists, complete or not.
std::string AnySearch(RandomSource& random);

}  // namespace tonalith::stress
