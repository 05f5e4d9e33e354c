// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Queries of the editor besides its records: the scale types, and the next sort number of a type. Each query opens a
// connection of its own and throws core::Failure.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tonalith::editor {

struct ScaleType {
  std::int64_t id = 0;
  std::string name;
};

/// In the order of their numbers.
std::vector<ScaleType> ReadScaleTypes(const std::string& connectionString);

/// One more than the highest sort number of the type's scales; 1 for a type without scales.
std::int64_t NextSortNumber(const std::string& connectionString, std::int64_t scaleTypeId);

}  // namespace tonalith::editor
