// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Makes the sounds of one set of a recipe: a folder of the set's name, in it the files 0.wav, 1.wav and so on. The same
// recipe gives the same bytes every time. The recordings of scale positions are marked as shipped. Files that are there
// already are overwritten, others are left alone. A file that cannot be written throws std::runtime_error with its
// path, a note that the recipe makes impossible RecipeError; the files made until then stay. No thread.

#pragma once

#include <filesystem>
#include <string_view>

#include "voice/recipe.h"

namespace tonalith::synth {

/// Throws std::runtime_error where the recipe has no set of that name.
void MakeSounds(const voice::Recipe& recipe, std::string_view set, const std::filesystem::path& folder);

}  // namespace tonalith::synth
