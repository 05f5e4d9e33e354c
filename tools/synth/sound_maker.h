// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Makes every sound of a recipe: a folder for each set, in it the files 0.wav, 1.wav and so on. The same recipe gives
// the same bytes every time. Files that are there already are written anew, others are left alone. A file that cannot
// be written throws std::runtime_error with its path, a note that the recipe makes impossible RecipeError; the files
// made until then stay. No thread.

#pragma once

#include <filesystem>

#include "synth/recipe.h"

namespace tonalith::synth {

void MakeSounds(const Recipe& recipe, const std::filesystem::path& folder);

}  // namespace tonalith::synth
