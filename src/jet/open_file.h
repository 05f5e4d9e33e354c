// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A file that is open for reading and closed with this. Whoever made it asks whether it could be opened; errno then
// says why not. Private to the data room; one thread; never throws.

#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <string>

namespace tonalith::jet {

class OpenFile {
 public:
  /// `flags` come to those of reading, as open(2) has them.
  explicit OpenFile(const std::string& path, int flags = 0)
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | flags)) {}
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  /// Negative where it could not be opened.
  [[nodiscard]] int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

}  // namespace tonalith::jet
