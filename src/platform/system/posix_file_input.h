// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads files with POSIX calls through a small buffer. If a path with backslashes does not exist, they are read as
// slashes. Opening never blocks; the file type is checked on the open descriptor, which avoids a race.

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
