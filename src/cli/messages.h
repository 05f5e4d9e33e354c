// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The ids of this room's messages; the texts are in messages.cpp.

#pragma once

#include <cstdint>
#include <span>

#include "core/message.h"

namespace tonalith::cli {

enum class MessageId : std::uint8_t {
  kUnknownEntry,
  kUnknownEntryOfNone,
  kUnknownInstrument,
  kUnknownType,
  kUnknownTypeOfNone,
  kNoKey,
  kKeyHasOctave,
  kOtherRoot,
  kNoNotes,
  kNoFrets,
  kOtherStrings,
  kNoFretThere,
  kAllMuted,
  kNoOctave,
  kPerStringInBoxes,
  kPackLeftOut,
  kNotWritten,
  kCount,
};

std::span<const core::MessageText> CatalogueOf(MessageId id);

}  // namespace tonalith::cli
