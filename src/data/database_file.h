// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Checks of a file before the engine opens it: that it exists, is readable, and starts like a database. Never creates
// or changes anything.

#pragma once

#include <string>

namespace tonalith::data {

/// The absolute path of the file `dataSource`; a relative path is resolved through the current directory. Throws if the
/// file does not exist, is not a regular file, is unreadable or not a database, or if its journal is not a regular
/// file.
std::string RequireDatabaseFile(const std::string& dataSource);

/// Throws if a file of the engine ends within a page, because the engine reads the missing part as zeros. No other
/// process may write to the file meanwhile. Does not open the file: closing it would release the locks of the engine.
void RequireWholePages(const std::string& path, int pageSize);

}  // namespace tonalith::data
