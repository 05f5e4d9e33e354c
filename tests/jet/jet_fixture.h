// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Shared by the tests of Jet files: the two genuine packs, and copies of them with changed bytes.

#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <utility>

namespace tonalith::jet {

inline const std::string kJet2000 = TONALITH_SOURCE_DIR "/tests/jet/fixtures/DataPack_Jet2000.mdb";
inline const std::string kJet2003 = TONALITH_SOURCE_DIR "/tests/jet/fixtures/DataPack_Jet2003.mdb";
inline constexpr std::size_t kJetPage = 4096;

inline std::string ContentOfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The content of a file with some bytes changed by exclusive or: offset and pattern.
inline std::string ContentWith(const std::string& path,
                               std::initializer_list<std::pair<std::size_t, std::uint8_t>> changes) {
  std::string content = ContentOfFile(path);
  for (const auto& [offset, pattern] : changes) {
    content.at(offset) = static_cast<char>(static_cast<std::uint8_t>(content.at(offset)) ^ pattern);
  }
  return content;
}

}  // namespace tonalith::jet
