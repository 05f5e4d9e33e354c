// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How much content a database file of a given size can hold. A file that gives more was made to fill memory or the
// disk, or is damaged. Private to the data room; a pure function; any thread; never fails.

#pragma once

#include <cstdint>

namespace tonalith::jet {

/// In bytes. Texts of a Jet file grow when they become UTF-8, and a field that takes a bit or nothing in the file
/// counts as a byte and more.
inline std::uint64_t ContentLimit(std::uint64_t fileSize) { return fileSize * 16 + (std::uint64_t{1} << 20); }

}  // namespace tonalith::jet
