// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/messages.h"

namespace tonalith::search {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kNoMatches, TONALITH_MESSAGE("tonalith::search", "No matches found.")},
    {kNoMatchesFor, TONALITH_MESSAGE("tonalith::search", "No matches found for '%1'")},
    {kAllSearched, TONALITH_MESSAGE("tonalith::search", "You have searched all the records once")},
    {kSearchingFor, TONALITH_MESSAGE("tonalith::search", "Searching for: %1")},
    {kNotOpen, TONALITH_MESSAGE("tonalith::search", "There are no scales to search: the scale database is not open.")},
    {kInvalidPattern, TONALITH_MESSAGE("tonalith::search", "Invalid pattern string")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::search
