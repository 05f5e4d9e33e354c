// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Drives and directories through the C++ standard library: the working directory moves with std::filesystem, and there
// are no drive letters to map. Stateless; user-interface thread; failures are core::Failure.

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
  /// Failure 76 ("Path not found") with the directory's name.
  void ChangeTo(const std::string& directory) override;
};

}  // namespace tonalith::platform
