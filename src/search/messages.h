// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The ids of this room's messages. Failures, message boxes and status lines pass them on with their arguments; the
// texts are in messages.cpp.

#pragma once

#include <cstdint>
#include <span>

#include "core/message.h"

namespace tonalith::search {

enum class MessageId : std::uint8_t {
  kNoMatches,
  kNoMatchesFor,
  kAllSearched,
  kSearchingFor,
  kNotOpen,
  kInvalidPattern,
  kCount,
};

std::span<const core::MessageText> CatalogueOf(MessageId id);

}  // namespace tonalith::search
