// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A temporary folder for one test, removed with its content by the destructor. Throws std::runtime_error if it cannot
// be created.

#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace tonalith::tests {

class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tonalith-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for temporary files");
    path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] std::string operator/(std::string_view name) const { return (path_ / name).string(); }

  /// Writes a file and returns its path.
  [[nodiscard]] std::string Write(std::string_view name, std::string_view content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
    return *this / name;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tonalith::tests
