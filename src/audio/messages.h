// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The ids of this room's messages. Failures, message boxes and status lines pass them on with their arguments; the
// texts are in messages.cpp.

#pragma once

#include <cstdint>
#include <span>

#include "core/message.h"

namespace tonalith::audio {

enum class MessageId : std::uint8_t {
  kFileNotOpened,
  kNotDescended,
  kWrongFormat,
  kNoFormat,
  kShortFormat,
  kFormatNotRead,
  kNotSought,
  kNoData,
  kDataNotRead,
  kCount,
};

std::span<const core::MessageText> CatalogueOf(MessageId id);

}  // namespace tonalith::audio
