// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/system/messages.h"

namespace tonalith::platform {
namespace {

using enum SystemMessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<SystemMessageId>>({
    {kPathNotFound, TONALITH_MESSAGE("tonalith::platform", "Path not found: %1 (%2)")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(SystemMessageId /*id*/) { return kTexts; }

}  // namespace tonalith::platform
