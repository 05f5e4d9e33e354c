// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads files for the audio code: open, read, seek, size; the destructor closes the file. Only regular files are
// opened, so a read never blocks on a pipe.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tonalith::platform {

class InputFile {
 public:
  InputFile() = default;
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  /// Closes the file.
  virtual ~InputFile() = default;

  /// Reads from the current position. Returns the number of bytes read, less than requested only at the end of the
  /// file, or -1 on failure.
  virtual std::int64_t Read(std::span<std::byte> into) = 0;

  /// Moves to a position from the start and returns it, or -1. A position after the end is allowed: the next read
  /// returns 0 bytes.
  virtual std::int64_t Seek(std::uint64_t position) = 0;

  /// The size in bytes when the file was opened.
  [[nodiscard]] virtual std::uint64_t Size() const = 0;
};

class FileInput {
 public:
  virtual ~FileInput() = default;

  /// Opens a regular file for reading. Returns null for a missing or unreadable file, a folder, a pipe or a device.
  virtual std::unique_ptr<InputFile> Open(const std::string& path) = 0;
};

}  // namespace tonalith::platform
