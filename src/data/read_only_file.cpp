// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/read_only_file.h"

#include <array>
#include <filesystem>
#include <fstream>

#include "data/connection.h"

namespace tonalith::data {
namespace {

// One thread at a time, so the engine need not lock.
const int kForReading = SQLite::OPEN_READONLY | SQLite::OPEN_NOMUTEX;

// SQLite database file format, section 1.3: 2 in both version bytes is a file with a write-ahead log.
bool HasWriteAheadLog(const std::string& path) {
  constexpr std::size_t kReadVersionOffset = 19;
  std::array<char, kReadVersionOffset + 1> header{};
  std::ifstream file(path, std::ios::binary);
  return file.read(header.data(), header.size()) && header[kReadVersionOffset] == 2;
}

// Whether nobody has the file open who could change it: such a one would keep the log beside it.
bool IsLogAtRest(const std::string& path) {
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
  // Reading such a file makes two more beside it, unless the engine is told that it does not change.
  if (IsLogAtRest(path)) {
    return std::make_unique<SQLite::Database>(UriOf(path), kForReading | SQLite::OPEN_URI, kBusyMilliseconds);
  }
  return std::make_unique<SQLite::Database>(path, kForReading, kBusyMilliseconds);
}

}  // namespace tonalith::data
