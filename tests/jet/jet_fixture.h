// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the tests around Jet files share: the two genuine packs, and copies of them changed in given bytes.

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

/// The content of a file with bytes changed by exclusive or: place and pattern.
inline std::string ContentWith(const std::string& path,
                               std::initializer_list<std::pair<std::size_t, std::uint8_t>> changes) {
  std::string content = ContentOfFile(path);
  for (const auto& [place, pattern] : changes) {
    content.at(place) = static_cast<char>(static_cast<std::uint8_t>(content.at(place)) ^ pattern);
  }
  return content;
}

}  // namespace tonalith::jet
