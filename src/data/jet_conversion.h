// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main database as a genuine Jet file, put there by the user, becomes a scale database of this program: all of it,
// once, or nothing. The new file is made beside the old one, every row is read back and compared, then the old file
// gets a second name that says what it is, and the new one takes its place. Killed at any moment, the program finds the
// Jet file or the finished database when it starts again, and the Jet file is never gone. One thread; called before the
// database is opened. Fails by throwing core::Failure that says what is in the way; then nothing has changed.

#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tonalith::data {

enum class ConversionStep { kMaking, kFilling, kFilled, kKept, kReplaced };

/// Converts the file if it is a Jet file and gives the name under which that one is kept; nothing where there was
/// nothing to do. `onStep` is told of each step that begins, kFilling once for each table and each thousand rows.
std::optional<std::string> ConvertMainDatabaseIfJet(const std::string& path,
                                                    const std::function<void(ConversionStep)>& onStep = {});

}  // namespace tonalith::data
