// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A compiled help file as its objects: topics, pictures, style sheets and the lists of contents and index, by path. The
// reading is done in a process of its own, because chmlib trusts its input: a file that makes it crash, run for ever or
// ask for everything is reported as damaged, within the limits. A file is read whole or refused. One thread; the caller
// waits. Fails by throwing core::Failure with a description that names the file.

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>

#include "sandbox/child_process.h"

namespace tonalith::help {

/// The objects of a file by their paths, which begin with a slash.
using ChmObjects = std::map<std::string, std::string>;

/// Larger than any help file for people to read.
inline constexpr std::uint64_t kLargestChmFile = std::uint64_t{256} << 20;
inline constexpr std::uint64_t kLargestChmObject = std::uint64_t{32} << 20;
inline constexpr std::uint64_t kLargestChmContent = std::uint64_t{64} << 20;
inline constexpr std::size_t kMostChmObjects = 20'000;
inline constexpr std::size_t kLongestChmPath = 1024;

/// What a help window may keep its user waiting for.
inline constexpr sandbox::Limits kChmReadingLimits{std::chrono::seconds{5}, std::chrono::seconds{10},
                                                   std::uint64_t{256} << 20};

ChmObjects ReadChmFile(const std::string& path, const sandbox::Limits& limits = kChmReadingLimits);

/// The far end of the reading: takes the stream that the reading process writes, and trusts none of it. `source` fills
/// the front of a buffer and tells how much of it; 0 when there is no more.
ChmObjects ReadChmStream(const std::function<std::size_t(std::span<std::uint8_t>)>& source);

}  // namespace tonalith::help
