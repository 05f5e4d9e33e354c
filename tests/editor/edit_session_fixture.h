// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A session with a scripted scale, and the texts of its notices.

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "editor/edit_session.h"
#include "editor/scripted_scale.h"

namespace tonalith::editor {

inline std::string NameOf(MessageId id) {
  switch (id) {
    case MessageId::kViewingHint:
      return "viewing";
    case MessageId::kModifyHint:
      return "modify";
    case MessageId::kNotSavedYet:
      return "not saved yet";
    case MessageId::kPatternNotKept:
      return "pattern not kept";
    case MessageId::kNotesTakenBack:
      return "notes reverted";
    case MessageId::kNoNoteSelected:
      return "no note";
    case MessageId::kApplySaves:
      return "apply saves";
    case MessageId::kOneNote:
      return "apply saves one note";
    case MessageId::kSaved:
      return "saved";
    case MessageId::kShowsOtherVersion:
      return "other version";
    case MessageId::kPatternIsFull:
      return "full";
    default:
      return "another notice";
  }
}

class EditSessionTest : public testing::Test {
 protected:
  EditSessionTest() {
    scale_.Attach(session_);
    session_.RecordMoved();
  }

  std::string Notice() {
    const editor::Notice notice = session_.CurrentNotice();
    return NameOf(notice.id) + (notice.text.isEmpty() ? "" : " " + notice.text.toStdString());
  }
  void SetSaved() { session_.SetOutcome({MessageId::kSaved}); }
  /// The latest rejected edit, which must exist.
  RejectedEdit TakeRejected() { return session_.Rejected().TakeLatest().value(); }

  ScriptedScale scale_;
  EditSession session_{scale_};
};

/// In modify mode.
class ModifyingSessionTest : public EditSessionTest {
 protected:
  ModifyingSessionTest() { session_.EnterModify(); }
};

}  // namespace tonalith::editor
