// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A session with a scripted scale, and the texts of its notices.

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "editor/edit_session.h"
#include "editor/scripted_scale.h"

namespace tonalith::editor {

inline std::string NameOf(NoticeId id) {
  switch (id) {
    case NoticeId::kViewingHint:
      return "viewing";
    case NoticeId::kModifyHint:
      return "modify";
    case NoticeId::kNotSavedYet:
      return "not saved yet";
    case NoticeId::kPatternNotKept:
      return "pattern not kept";
    case NoticeId::kNotesTakenBack:
      return "notes reverted";
    case NoticeId::kNoNoteSelected:
      return "no note";
    case NoticeId::kApplySaves:
      return "apply saves";
    case NoticeId::kApplySavesOneNote:
      return "apply saves one note";
    case NoticeId::kSaved:
      return "saved";
    case NoticeId::kShowsOtherVersion:
      return "other version";
    case NoticeId::kPatternIsFull:
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
  void SetSaved() { session_.SetOutcome({NoticeId::kSaved}); }
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
