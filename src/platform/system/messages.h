// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The ids of this room's messages. Failures, message boxes and status lines pass them on with their arguments; the
// texts are in messages.cpp.

#pragma once

#include <cstdint>
#include <span>

#include "core/message.h"

namespace tonalith::platform {

enum class SystemMessageId : std::uint8_t {
  kPathNotFound,
  kCount,
};

std::span<const core::MessageText> CatalogueOf(SystemMessageId id);

}  // namespace tonalith::platform
