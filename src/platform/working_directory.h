// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The current drive and directory of the process, as a port so that tests do not change their own directory. Used at
// start-up. Throws core::Failure.

#pragma once

#include <string>

namespace tonalith::platform {

class WorkingDirectory {
 public:
  virtual ~WorkingDirectory() = default;

  /// Makes a drive ("C:") current; does nothing on a system without drives. Throws if the drive does not exist.
  virtual void MakeDriveCurrent(const std::string& drive) = 0;
  /// Changes to a directory. Throws on failure.
  virtual void ChangeTo(const std::string& directory) = 0;
};

}  // namespace tonalith::platform
