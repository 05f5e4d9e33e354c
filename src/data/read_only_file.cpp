// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/read_only_file.h"

#include <array>
#include <filesystem>
#include <fstream>

#include "data/connection.h"

namespace tonalith::data {
namespace {

// Used by one thread at a time, so the engine needs no locks.
const int kForReading = SQLite::OPEN_READONLY | SQLite::OPEN_NOMUTEX;

// SQLite database file format, section 1.3: both version bytes are 2 in a file with a write-ahead log.
bool HasWriteAheadLog(const std::string& path) {
  constexpr std::size_t kReadVersionOffset = 19;
  std::array<char, kReadVersionOffset + 1> header{};
  std::ifstream file(path, std::ios::binary);
  return file.read(header.data(), header.size()) && header[kReadVersionOffset] == 2;
}

// Whether no other connection can change the file: it would have a log next to the file.
bool IsImmutable(const std::string& path) {
  std::error_code error;
  return HasWriteAheadLog(path) && !std::filesystem::exists(path + "-wal", error);
}

std::string UriOf(const std::string& path) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char character : path) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == '%' || character == '?' || character == '#') {
      uri += '%';
      uri += kDigits[byte >> 4];
      uri += kDigits[byte & 0xF];
    } else {
      uri += character;
    }
  }
  return uri + "?immutable=1";
}

}  // namespace

std::unique_ptr<SQLite::Database> OpenForReading(const std::string& path) {
  // The engine would create two more files to read this one, unless it is opened as immutable.
  if (IsImmutable(path)) {
    return std::make_unique<SQLite::Database>(UriOf(path), kForReading | SQLite::OPEN_URI, kBusyMilliseconds);
  }
  return std::make_unique<SQLite::Database>(path, kForReading, kBusyMilliseconds);
}

}  // namespace tonalith::data
