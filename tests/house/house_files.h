// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// File helpers for the tests of the project rules: reading, listing in a stable order, and small trees written from
// text, which show that a rule can fail. Reading a missing file throws std::runtime_error with its name.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::house {

using Path = std::filesystem::path;

/// The root folder of the project.
Path ProjectRoot();

std::string ReadFile(const Path& file);
std::vector<std::string> LinesOf(const Path& file);
void WriteFile(const Path& file, std::string_view text);

/// The parts between runs of any of `separators`, without empty ones.
std::vector<std::string> Split(std::string_view text, std::string_view separators);

/// The text files of the project, relative to `root`, sorted; without build folders and version control.
std::vector<Path> ProjectFiles(const Path& root);

/// A temporary folder with the lifetime of this object. The text contains file names and their lines:
///     == src/core/a.h
///     #include <vector>
class TemporaryTree {
 public:
  explicit TemporaryTree(std::string_view text);
  TemporaryTree(const TemporaryTree&) = delete;
  TemporaryTree& operator=(const TemporaryTree&) = delete;
  ~TemporaryTree();

  [[nodiscard]] const Path& Root() const { return root_; }

 private:
  Path root_;
};

}  // namespace tonalith::house
