// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The small help file that the build compiles from tests/help/book, its sources, and helpers for books in memory.
// Throws std::runtime_error if a file is missing.

#pragma once

#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

#include "help/help_book.h"

namespace tonalith::help {

inline std::string BookPath() { return std::string(TONALITH_BINARY_DIR) + "/tests/help/book/book.chm"; }

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path + " is not there");
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

/// Content of a source file of the help file.
inline std::string SourceOf(const std::string& name) {
  return BytesOf(std::string(TONALITH_SOURCE_DIR) + "/tests/help/book/" + name);
}

inline std::shared_ptr<const HelpBook> ReadBook() { return std::make_shared<const HelpBook>(ReadChmFile(BookPath())); }

/// One entry of contents or index.
inline std::string MapEntry(const std::string& name, const std::string& local) {
  return "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"" + name + "\">" +
         (local.empty() ? std::string() : "<param name=\"Local\" value=\"" + local + "\">") + "</object>\n";
}

}  // namespace tonalith::help
