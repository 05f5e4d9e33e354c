// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The commands: from options to answers. They throw Refusal for texts that mean nothing.

#pragma once

#include <cstddef>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/answers.h"
#include "cli/options.h"

namespace tonalith::cli {

[[nodiscard]] std::vector<ListedEntry> ListEntries(const catalogue::Catalogue& catalogue, const Options& options);
/// Reads the description from the file of the entry; throws core::Failure too.
[[nodiscard]] ShownMusic ShowMusic(const catalogue::Catalogue& catalogue, const Options& options);
/// Exact scales are all there; other ones only up to the limit of the options.
[[nodiscard]] NamedNotes NameNotes(const catalogue::Catalogue& catalogue, const Options& options);
[[nodiscard]] ShownShapes FindShapes(const catalogue::Catalogue& catalogue, const Options& options);
[[nodiscard]] ShownPositions FindPositions(const catalogue::Catalogue& catalogue, const Options& options);
[[nodiscard]] std::vector<theory::ScaleChord> FindChords(const catalogue::Catalogue& catalogue, const Options& options);

}  // namespace tonalith::cli
