// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Makes the sounds of one set of a recipe: a folder with the name of the set that contains 0.wav, 1.wav and so on. The
// output is deterministic. Recordings of scale positions get the checksum chunk of shipped recordings. Existing files
// are overwritten, others are left unchanged. Throws std::runtime_error with the path for a file that cannot be written
// and RecipeError for a note that is too loud; earlier files remain.

#pragma once

#include <filesystem>
#include <string_view>

#include "voice/recipe.h"

namespace tonalith::synth {

/// Throws std::runtime_error if the recipe has no set of that name.
void MakeSounds(const voice::Recipe& recipe, std::string_view set, const std::filesystem::path& folder);

}  // namespace tonalith::synth
