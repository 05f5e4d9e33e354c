// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the tests of the house need of files: reading, listing in a stable order, and small trees written from text, so
// that a rule can be shown to fail. Plain functions and one owner of a temporary folder; no thread of their own.
// Reading a file that is not there throws std::runtime_error with its name.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::house {

using Path = std::filesystem::path;

/// The root of the project's source.
Path ProjectRoot();

std::string ReadFile(const Path& file);
std::vector<std::string> LinesOf(const Path& file);
void WriteFile(const Path& file, std::string_view text);

/// The pieces between runs of any of `separators`, empty ones left out.
std::vector<std::string> Split(std::string_view text, std::string_view separators);

/// The files of the project's own text, relative to `root`, sorted; folders of builds and of version control left out.
std::vector<Path> ProjectFiles(const Path& root);

/// A folder that lives as long as this object. The text names files and their lines:
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
