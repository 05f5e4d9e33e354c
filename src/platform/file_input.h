// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reading files as the audio code sees it: open, read, seek, size, and closing by letting go. A port: posix/ reads the
// file system, scripted/ plays files from memory and fails where a test says so. Only regular files are opened, so a
// read never waits for somebody at the other end of a pipe. Used on the user-interface thread; an open file belongs to
// whoever opened it.

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

  /// Reads from the current position on. Returns the number of bytes read, fewer than asked for only at the end of the
  /// file, or -1 when the read failed.
  virtual std::int64_t Read(std::span<std::byte> into) = 0;

  /// Moves to a position counted from the start and returns it, or -1. A position past the end is allowed: the next
  /// read gives 0 bytes.
  virtual std::int64_t Seek(std::uint64_t position) = 0;

  /// The size in bytes when the file was opened.
  [[nodiscard]] virtual std::uint64_t Size() const = 0;
};

class FileInput {
 public:
  virtual ~FileInput() = default;

  /// Opens a regular file for reading. Nothing (null) for a missing or unreadable file, a folder, a pipe, a device.
  virtual std::unique_ptr<InputFile> Open(const std::string& path) = 0;
};

}  // namespace tonalith::platform
