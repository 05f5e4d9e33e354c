// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Opens a database file that is only to be read, so that neither it nor its folder changes. Private to the data room;
// one thread. Fails by throwing SQLite::Exception.

#pragma once

#include <SQLiteCpp/Database.h>

#include <memory>
#include <string>

namespace tonalith::data {

/// `path` is absolute. Another program that holds the file is waited for, up to kBusyMilliseconds.
std::unique_ptr<SQLite::Database> OpenForReading(const std::string& path);

}  // namespace tonalith::data
