// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The content of the editor's notice line: an id with its argument. notice_text.h makes the text.

#pragma once

#include <QString>

namespace tonalith::editor {

enum class NoticeId {
  // Permanent states.
  kViewingHint,
  kModifyHint,
  kNotSavedYet,
  /// `text` is the record's pattern; the buttons show another one.
  kPatternNotKept,
  kNotesTakenBack,
  // What Apply would save.
  kNoNoteSelected,
  /// `text` is the pattern of the selected notes.
  kApplySaves,
  kApplySavesOneNote,
  // The outcome of the last command.
  /// `text` is the name of the scale.
  kSaved,
  kNotKept,
  kNotSaved,
  kBroughtBack,
  kLibraryRead,
  kShowsOtherVersion,
  // What a text box has just refused.
  /// `field` is the index of the text box.
  kFieldIsFull,
  kPatternIsFull,
  kTextIsShortened,
};

struct Notice {
  NoticeId id = NoticeId::kViewingHint;
  QString text = {};
  int field = 0;
  bool operator==(const Notice&) const = default;
};

}  // namespace tonalith::editor
