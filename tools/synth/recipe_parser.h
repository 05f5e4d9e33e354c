// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads the recipe of the shipped sounds from its text form in content/sounds, and writes the source by which the
// program has it. A recipe that is returned is complete, and every value lies in the range that its comment names. A
// line that cannot be understood, a missing or a doubled one throws RecipeError, which says where and why. No thread.

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "voice/recipe.h"

namespace tonalith::synth {

class RecipeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

voice::Recipe ParseRecipe(std::string_view text);

/// The text of a C++ file that defines voice::BuiltInRecipe with exactly these values.
std::string RecipeSource(const voice::Recipe& recipe);

}  // namespace tonalith::synth
