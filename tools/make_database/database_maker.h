// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Turns the text tables into a scale database or a data pack; the two differ in nothing but their rows. The rows go in
// through the stored query, so what its triggers refuse in the program is refused here, with the line of the table in
// front. The file appears whole or not at all.

#pragma once

#include <filesystem>

#include "make_database/scale_tables.h"

namespace tonalith::make_database {

/// Writes `output`, taking the place of a file that is there. Throws a Failure and leaves that file as it was.
void MakeDatabase(const ScaleTables& tables, const std::filesystem::path& output);

}  // namespace tonalith::make_database
