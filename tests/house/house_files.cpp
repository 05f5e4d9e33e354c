// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "house/house_files.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tonalith::house {
namespace fs = std::filesystem;

Path ProjectRoot() { return TONALITH_SOURCE_DIR; }

std::string ReadFile(const Path& file) {
  const std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    throw std::runtime_error("cannot read " + file.string());
  }
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

std::vector<std::string> LinesOf(const Path& file) {
  std::istringstream text(ReadFile(file));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    lines.push_back(line);
  }
  return lines;
}

void WriteFile(const Path& file, std::string_view text) {
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << text)) {
    throw std::runtime_error("cannot write " + file.string());
  }
}

std::vector<std::string> Split(std::string_view text, std::string_view separators) {
  std::vector<std::string> pieces;
  for (std::size_t begin = 0; (begin = text.find_first_not_of(separators, begin)) != std::string_view::npos;) {
    const std::size_t end = std::min(text.find_first_of(separators, begin), text.size());
    pieces.emplace_back(text.substr(begin, end - begin));
    begin = end;
  }
  return pieces;
}

std::vector<Path> ProjectFiles(const Path& root) {
  std::vector<Path> files;
  for (auto entry = fs::recursive_directory_iterator(root); entry != fs::recursive_directory_iterator(); ++entry) {
    const std::string name = entry->path().filename().string();
    if (entry->is_directory() && (name == ".git" || name == ".cache" || name == "build" || name == "__pycache__")) {
      entry.disable_recursion_pending();
    } else if (entry->is_regular_file()) {
      files.push_back(fs::relative(entry->path(), root));
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

TemporaryTree::TemporaryTree(std::string_view text) {
  std::string name = (fs::temp_directory_path() / "tonalith-house-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("cannot make a folder like " + name);
  }
  root_ = name;
  std::ofstream file;
  for (const std::string& line : Split(text, "\n")) {
    if (line.rfind("== ", 0) == 0) {
      const Path path = root_ / line.substr(3);
      fs::create_directories(path.parent_path());
      file = std::ofstream(path);
    } else {
      file << line << '\n';
    }
  }
}

TemporaryTree::~TemporaryTree() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

}  // namespace tonalith::house
