// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A message in the user's language, for the text of a control. Message boxes translate their texts themselves.

#pragma once

#include <QString>

#include "core/message.h"

namespace tonalith::windows {

QString Translated(const core::Message& message);

}  // namespace tonalith::windows
