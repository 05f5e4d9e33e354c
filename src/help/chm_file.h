// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads the objects of a compiled help file: topics, pictures, style sheets and the lists of contents and index, by
// path. chmlib trusts its input, so it runs in a child process: a file that makes it crash, run endlessly or use too
// much memory is reported as damaged, within the limits. A file is read completely or refused. Blocks the caller.
// Throws core::Failure; the description contains the file name.

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

/// In bytes; larger than any help file for people to read.
inline constexpr std::uint64_t kLargestChmFile = std::uint64_t{256} << 20;
inline constexpr std::uint64_t kLargestChmObject = std::uint64_t{32} << 20;
inline constexpr std::uint64_t kLargestChmContent = std::uint64_t{64} << 20;
inline constexpr std::size_t kMostChmObjects = 20'000;
inline constexpr std::size_t kLongestChmPath = 1024;

/// Time and memory limits: how long a user may have to wait for the help window.
inline constexpr sandbox::Limits kChmReadingLimits{std::chrono::seconds{5}, std::chrono::seconds{10},
                                                   std::uint64_t{256} << 20};

ChmObjects ReadChmFile(const std::string& path, const sandbox::Limits& limits = kChmReadingLimits);

/// The parent's end: reads the stream from the child process as untrusted input. `source` fills the front of a buffer
/// and returns the number of bytes; 0 at the end.
ChmObjects ReadChmStream(const std::function<std::size_t(std::span<std::uint8_t>)>& source);

}  // namespace tonalith::help
