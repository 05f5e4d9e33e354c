// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The network shares of mapped drive letters. On systems without drive letters the implementation reports none. Never
// throws.

#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tonalith::platform {

/// The share of one drive: a text of `reportedLength` characters, including the terminator.
struct NetworkConnection {
  std::string remoteName;
  std::size_t reportedLength = 0;
};

class NetworkDrives {
 public:
  /// Maximum length of a share in characters; a longer share counts as not mapped.
  static constexpr std::size_t kBufferLength = 260;

  virtual ~NetworkDrives() = default;

  /// The share that `drive` (a letter and ":") is mapped to; nullopt if it is not mapped.
  [[nodiscard]] virtual std::optional<NetworkConnection> ConnectionOf(const std::string& drive) const = 0;
};

}  // namespace tonalith::platform
