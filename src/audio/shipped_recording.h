// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Distinguishes the recordings that ship with the program from the user's. A shipped recording has the format of the
// sound maker and a chunk with the checksum of its samples; the recordings of version 1.0 have no such chunk and are
// recognised by the checksum of the file. A changed or damaged recording is not a shipped one.

#pragma once

#include <cstdint>

#include "platform/file_input.h"

namespace tonalith::audio {

/// In bytes. A longer file is not read: a shipped recording has about 53,000 bytes.
inline constexpr std::uint64_t kLargestShippedRecording = std::uint64_t{256} << 10U;

/// Reads the file from its start; the position afterwards is unspecified. Throws what the file throws.
bool IsShippedRecording(platform::InputFile& file);

}  // namespace tonalith::audio
