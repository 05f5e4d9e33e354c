// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads the file system with POSIX calls through a small buffer. A path may be written with backslashes between its
// folders: where no such name exists, they are read as slashes. Opening never blocks, and the type is asked of the open
// file, so nothing can be swapped in between. See file_input.h for the contract.

#pragma once

#include <memory>
#include <string>

#include "platform/file_input.h"

namespace tonalith::platform {

class PosixFileInput : public FileInput {
 public:
  std::unique_ptr<InputFile> Open(const std::string& path) override;
};

}  // namespace tonalith::platform
