// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Parses the recipe of the shipped sounds from its text in content/sounds, and generates the C++ source for the
// program. A returned recipe is complete and every value is in its documented range. Throws RecipeError with line and
// cause for an invalid, missing or repeated line.

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

/// The source of a C++ file that defines voice::BuiltInRecipe with exactly these values.
std::string RecipeSource(const voice::Recipe& recipe);

}  // namespace tonalith::synth
