// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Converts the text tables into a scale database or a data pack, which differ only in their rows. Rows are inserted
// through the stored query, so its triggers check them; a failure names the line of the table. The file is written
// completely or not at all.

#pragma once

#include <filesystem>

#include "make_database/scale_tables.h"

namespace tonalith::make_database {

/// Writes `output` and replaces an existing file. Throws a Failure and keeps that file unchanged.
void MakeDatabase(const ScaleTables& tables, const std::filesystem::path& output);

}  // namespace tonalith::make_database
