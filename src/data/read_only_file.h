// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Opens a database file for reading, so that neither the file nor its folder changes. Private to this room. Throws
// SQLite::Exception.

#pragma once

#include <SQLiteCpp/Database.h>

#include <memory>
#include <string>

namespace tonalith::data {

/// `path` is absolute. Waits up to kBusyMilliseconds if another program has the file locked.
std::unique_ptr<SQLite::Database> OpenForReading(const std::string& path);

}  // namespace tonalith::data
