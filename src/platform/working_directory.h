// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The process's current drive and directory. A port, so that start-up can be tested without moving the tests'
// own directory. User-interface thread, at start-up only; failures are core::Failure.

#pragma once

#include <string>

namespace tonalith::platform {

class WorkingDirectory {
 public:
  virtual ~WorkingDirectory() = default;

  /// Makes a drive ("C:") current; a system without drives has nothing to do. Throws where there is no such drive.
  virtual void MakeDriveCurrent(const std::string& drive) = 0;
  /// Changes to a directory. Throws where that cannot be done.
  virtual void ChangeTo(const std::string& directory) = 0;
};

}  // namespace tonalith::platform
