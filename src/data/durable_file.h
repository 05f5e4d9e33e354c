// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Steps with files that hold through a crash: each is done before or after it, and what is done is on the disk when the
// function returns. Pure functions of the file system. They fail by throwing core::Failure in words that name the file.

#pragma once

#include <chrono>
#include <string>

namespace tonalith::data {

/// Gives the file a second name beside it: its own with `label` before the ending, and with a number where that name is
/// taken by something else. Gives that name back. Where the file system knows no second names, it is a copy.
std::string LinkOrCopyWithLabel(const std::string& path, const std::string& label);

/// A copy that is there completely or not at all. Throws when there is a file of the new name.
void CopyDurably(const std::string& from, const std::string& to);

/// Puts `from` in the place of `to`, which has the one content or the other at every moment.
void ReplaceDurably(const std::string& from, const std::string& to);

/// How long a program that shows nothing yet may wait for another.
inline constexpr std::chrono::milliseconds kLockTimeout{10'000};

/// Holds a file against others who hold it so, from construction to destruction. Waits for them as long as it may, and
/// then fails as with any file that is in use. A file system without locks counts as held.
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
