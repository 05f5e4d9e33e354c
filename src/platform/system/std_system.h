// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The working directory through std::filesystem, and no mapped drives.

#pragma once

#include "platform/network_drives.h"
#include "platform/working_directory.h"

namespace tonalith::platform {

class NoNetworkDrives : public NetworkDrives {
 public:
  [[nodiscard]] std::optional<NetworkConnection> ConnectionOf(const std::string& drive) const override;
};

class StdWorkingDirectory : public WorkingDirectory {
 public:
  void MakeDriveCurrent(const std::string& drive) override;
  /// Throws failure 76 ("Path not found") with the directory's name.
  void ChangeTo(const std::string& directory) override;
};

}  // namespace tonalith::platform
