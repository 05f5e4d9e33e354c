// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// File operations that are atomic in case of a crash. When a function returns, its result is on the disk.

#pragma once

#include <chrono>
#include <string>

namespace tonalith::data {

/// Adds a hard link to the file in its folder: its name with `label` before the extension, and a number if another file
/// has that name. Makes a copy if the file system has no hard links. Returns the new path.
std::string LinkOrCopyWithLabel(const std::string& path, const std::string& label);

/// Copies the file completely or not at all. Throws if `to` exists.
void CopyDurably(const std::string& from, const std::string& to);

/// Renames `from` to `to`, which has either the old or the new content at any moment.
void ReplaceDurably(const std::string& from, const std::string& to);

/// How long the program may wait for another one while it has no window yet.
inline constexpr std::chrono::milliseconds kLockTimeout{10'000};

/// An advisory lock on a file for the current scope. Waits up to `timeout`, then throws the failure of a file in use.
/// On a file system without locks it has no effect.
class FileLock {
 public:
  explicit FileLock(const std::string& path, std::chrono::milliseconds timeout = kLockTimeout);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  int descriptor_;
};

}  // namespace tonalith::data
