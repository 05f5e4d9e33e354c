// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The look at a file before the engine gets it: is it there, may it be read, does its content begin like a database.
// Never creates or changes anything. Pure function of the file system; what is wrong is thrown in words.

#pragma once

#include <string>

namespace tonalith::data {

/// The absolute path of the file that `dataSource` names, a relative one being found through the current directory.
/// Throws when there is no such file, when it is no ordinary file or unreadable, when it is no database, and when the
/// journal beside it is no ordinary file.
std::string RequireDatabaseFile(const std::string& dataSource);

/// Throws when a file of the engine ends in the middle of a page: the engine takes a page whose rest is missing for one
/// that holds zeros there. Nobody may be writing to it meanwhile. Does not open the file: closing it again would take
/// the engine's locks away.
void RequireWholePages(const std::string& path, int pageSize);

}  // namespace tonalith::data
