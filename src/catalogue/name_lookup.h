// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds an entry by a typed name, ignoring case: the whole name, then the name without its bracket, then an alias.
// Within each of them a name in the same case precedes, then an entry of the preferred kind, then the order of the
// catalogue. Two symbols that differ in case and in meaning (m7, M7) are not equal.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"

namespace tonalith::catalogue {

enum class NamePart : std::uint8_t { kWhole, kWithoutBracket, kAlias };

/// "Minor 7" for "Minor 7 (m7)"; the same text if it has no bracket at its end.
[[nodiscard]] std::string_view WithoutBracket(std::string_view name);

/// The entry that a name denotes. `preferred` decides among equal names of scales and chords.
[[nodiscard]] std::optional<std::size_t> FindEntry(const Catalogue& catalogue, std::string_view name,
                                                   std::optional<theory::SetKind> preferred = std::nullopt);

/// The names and aliases that are most like a name that no entry has: those that contain its words, then those that
/// differ by the fewest characters. Different from each other.
[[nodiscard]] std::vector<std::string> NearestNames(const Catalogue& catalogue, std::string_view name,
                                                    std::size_t count = 3);
/// The same for any texts.
[[nodiscard]] std::vector<std::string> NearestTexts(const std::vector<std::string>& texts, std::string_view text,
                                                    std::size_t count = 3);

}  // namespace tonalith::catalogue
