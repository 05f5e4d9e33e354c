// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The near end of reading a help file: chmlib, and the writing of what it finds into a pipe (help/chm_stream.h). Runs
// inside a sandbox::ChildProcess only; a damaged file may end that process in any way.

#pragma once

#include <string>

namespace tonalith::help {

/// Writes every object of the file that a help window can use. Throws core::Failure when the file is none, when an
/// object cannot be read whole, or when a limit of help/chm_file.h is passed.
void WriteChmObjects(const std::string& path, int pipe);

}  // namespace tonalith::help
