// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Identity and state of the file at a path: equal states mean the same file without a write or a change of permissions
// in between. Private to this room. Any thread; never throws.

#pragma once

#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace tonalith::data {

class FileState {
 public:
  /// std::nullopt if the file does not exist or cannot be reached.
  static std::optional<FileState> Of(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    FileState state;
    state.facts_ = {static_cast<std::int64_t>(status.st_dev),
                    static_cast<std::int64_t>(status.st_ino),
                    status.st_size,
                    status.st_mtim.tv_sec,
                    status.st_mtim.tv_nsec,
                    status.st_ctim.tv_sec,
                    status.st_ctim.tv_nsec};
    return state;
  }
  bool operator==(const FileState&) const = default;

 private:
  std::array<std::int64_t, 7> facts_{};
};

}  // namespace tonalith::data
