// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A file that is open for reading and is closed by the destructor. The caller checks Descriptor(); errno contains the
// error.

#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <string>

namespace tonalith::jet {

class OpenFile {
 public:
  /// `flags` are added to those of open(2) for reading.
  explicit OpenFile(const std::string& path, int flags = 0)
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | flags)) {}
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  /// Negative if the file could not be opened.
  [[nodiscard]] int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

}  // namespace tonalith::jet
