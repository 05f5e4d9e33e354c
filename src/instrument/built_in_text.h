// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The text tables of content/instruments, compiled in. The build generates the definitions from the files.

#pragma once

#include <string_view>

namespace tonalith::instrument {

extern const std::string_view kInstrumentsTable;
extern const std::string_view kKnownShapesTable;

}  // namespace tonalith::instrument
