// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Brings the recordings of a stage up to date: adds what is missing and replaces shipped recordings that differ. A file
// that somebody has changed or put there stays. A file appears whole under its name or not at all. Failures are
// exceptions of the standard library that name the file. No thread.

#pragma once

#include <filesystem>

namespace tonalith::synth {

/// Each file of `from` to the file of the same name in `to`, which is made where it is missing.
void StageRecordings(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace tonalith::synth
