// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The child's end of reading a help file: reads it with chmlib and writes the objects to a pipe (help/chm_stream.h).
// Runs only inside a sandbox::ChildProcess; a damaged file may end that process in any way.

#pragma once

#include <string>

namespace tonalith::help {

/// Writes every object that a help window uses. Throws core::Failure if the file is not a help file, an object cannot
/// be read completely, or a limit of help/chm_file.h is exceeded.
void WriteChmObjects(const std::string& path, int pipe);

}  // namespace tonalith::help
