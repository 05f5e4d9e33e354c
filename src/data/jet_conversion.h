// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Converts a main database that is a genuine Jet file into a scale database, completely or not at all. The new file is
// created in the same folder, every row is read back and compared, the old file gets a second name, and the new file
// replaces it. If the program is killed at any moment, the Jet file or the finished database is there at the next
// start, and the Jet file is never lost. Called before the database is opened. If it throws, nothing has changed.

#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tonalith::data {

enum class ConversionStep { kMaking, kFilling, kFilled, kBackedUp, kReplaced };

/// Converts the file if it is a Jet file. Returns the second name of the Jet file, or std::nullopt if the file is not a
/// Jet file. `onStep` is called at the start of each step; kFilling once for each table and each thousand rows.
std::optional<std::string> ConvertMainDatabaseIfJet(const std::string& path,
                                                    const std::function<void(ConversionStep)>& onStep = {});

}  // namespace tonalith::data
