// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the editor asks the database beside its own records: the types that a scale can have, and the sort number that
// comes next within one. Each question opens and closes a connection of its own; failures are thrown. One thread.

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

/// One more than the highest sort number of the type's scales; 1 where there is none.
std::int64_t NextSortNumber(const std::string& connectionString, std::int64_t scaleTypeId);

}  // namespace tonalith::editor
