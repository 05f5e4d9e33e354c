// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The maximum content of a database file of a given size. A file with more content is damaged, or was made to fill
// memory or disk.

#pragma once

#include <cstdint>

namespace tonalith::jet {

/// In bytes. Texts of a Jet file grow when they are converted to UTF-8, and a field that needs a bit or less in the
/// file counts as at least one byte.
inline std::uint64_t ContentLimit(std::uint64_t fileSize) { return fileSize * 16 + (std::uint64_t{1} << 20); }

}  // namespace tonalith::jet
