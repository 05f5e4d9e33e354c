// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The ids of this room's messages; the texts are in messages.cpp.

#pragma once

#include <cstdint>
#include <span>

#include "core/message.h"

namespace tonalith::catalogue {

enum class MessageId : std::uint8_t {
  kTooManyEntries,
  kCount,
};

std::span<const core::MessageText> CatalogueOf(MessageId id);

}  // namespace tonalith::catalogue
