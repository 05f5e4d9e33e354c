// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Updates the recordings of a stage: adds missing files and replaces shipped recordings that differ. Files that the
// user changed or added are left unchanged. A file is replaced atomically. Throws standard library exceptions that name
// the file.

#pragma once

#include <filesystem>

namespace tonalith::synth {

/// Copies each file of `from` to `to`, which is created if missing.
void StageRecordings(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace tonalith::synth
