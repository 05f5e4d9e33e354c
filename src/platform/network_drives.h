// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The network shares behind drive letters, as far as the system has such a thing. A port: where there are no mapped
// drives the implementation knows none (platform/std), tests script some. User-interface thread; never throws.

#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tonalith::platform {

/// The system's answer about one drive: a text of `reportedLength` characters, of which the last one is the terminator.
struct NetworkConnection {
  std::string remoteName;
  std::size_t reportedLength = 0;
};

class NetworkDrives {
 public:
  /// Room for an answer, in characters; a longer share is no answer.
  static constexpr std::size_t kBufferLength = 260;

  virtual ~NetworkDrives() = default;

  /// What `drive` (a letter and ":") is mapped to; nothing when it is no mapped drive.
  [[nodiscard]] virtual std::optional<NetworkConnection> ConnectionOf(const std::string& drive) const = 0;
};

}  // namespace tonalith::platform
