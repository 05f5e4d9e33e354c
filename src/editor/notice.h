// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The content of the editor's notice line: a message with its argument. notice_text.h makes the text.

#pragma once

#include <QString>

#include "editor/messages.h"

namespace tonalith::editor {

struct Notice {
  MessageId id = MessageId::kViewingHint;
  /// The record's pattern for kPatternNotKept, the one of the selected notes for kApplySaves and kOneNote, the scale's
  /// name for kSaved.
  QString text = {};
  /// The index of the text box for kFieldIsFull.
  int field = 0;
  bool operator==(const Notice&) const = default;
};

}  // namespace tonalith::editor
