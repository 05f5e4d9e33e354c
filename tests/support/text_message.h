// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A message of a test, which is in no catalogue.

#pragma once

#include <string>

#include "core/message.h"

namespace tonalith::tests {

inline core::Message TextMessage(std::string text) { return core::Message::Verbatim(std::move(text)); }

}  // namespace tonalith::tests
