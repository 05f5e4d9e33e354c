// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Which file stands at a path and in what state: equal states are the same file, neither written nor given other rights
// in between. Private to the data room; any thread; never throws.

#pragma once

#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace tonalith::data {

class FileState {
 public:
  /// Nothing where there is no file that can be reached.
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
