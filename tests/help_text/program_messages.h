// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The message catalogues of all rooms.

#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "core/message.h"

namespace tonalith::help_text {

struct RoomCatalogue {
  /// The folder of its messages.h in src/.
  std::string folder;
  std::span<const core::MessageText> texts;
};

std::vector<RoomCatalogue> ProgramCatalogues();

/// Each fixed part of a message, with the folder of the first room that has it.
std::map<std::string, std::string> MessagePieces(const std::vector<RoomCatalogue>& catalogues);

}  // namespace tonalith::help_text
