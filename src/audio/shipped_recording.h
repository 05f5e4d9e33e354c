// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Tells the recordings that ship with the program from those of the user. A shipped one is whole, in the format of the
// sound maker, and marked with the checksum of its samples; those of version 1.0 have no mark and are known by the
// checksum of the file. A recording that somebody has changed, or that is damaged, is not a shipped one.

#pragma once

#include <cstdint>

#include "platform/file_input.h"

namespace tonalith::audio {

/// A longer file is not read: a shipped recording has some 53,000 bytes.
inline constexpr std::uint64_t kLargestShippedRecording = std::uint64_t{256} << 10U;

/// Reads the file from its start and leaves the position anywhere. Throws what the file throws.
bool IsShippedRecording(platform::InputFile& file);

}  // namespace tonalith::audio
