// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/notice_text.h"

#include "core/field_limits.h"
#include "editor/frm_scales.h"
#include "editor/scale_editing.h"

namespace tonalith::editor {
namespace {

QString ViewingHint() { return frmScales::tr("Modify (F2) to change this scale or add one, Escape to close."); }

QString ChosenNotesText(const QString& pattern) {
  const QString words = QString::fromStdString(StepWordsText(pattern.toStdString())).trimmed();
  return frmScales::tr("Apply saves %1: %2").arg(pattern, words);
}

QString Caption(const ScalesControls& controls, int index) {
  return controls.lblLabels.at(static_cast<std::size_t>(index))->text();
}

}  // namespace

QString NoticeText(const Notice& notice, const ScalesControls& controls) {
  switch (notice.id) {
    case NoticeId::kViewingHint:
      return ViewingHint();
    case NoticeId::kModifyHint:
      return frmScales::tr("Choose notes and press Apply (Ctrl+Enter). Add begins a new scale.");
    case NoticeId::kNotSavedYet:
      return frmScales::tr("Not saved yet.");
    case NoticeId::kPatternNotKept:
      return frmScales::tr("Not kept. The scale still is %1. Modify (F2) brings your changes back.").arg(notice.text);
    case NoticeId::kNotesTakenBack:
      return frmScales::tr("Back to the saved notes. Ctrl+Z on a note brings yours back.");
    case NoticeId::kNoNoteSelected:
      return frmScales::tr("No note is selected.");
    case NoticeId::kApplySaves:
      return ChosenNotesText(notice.text);
    case NoticeId::kApplySavesOneNote:
      return ChosenNotesText(notice.text) + QStringLiteral(". ") + frmScales::tr("One note is not a scale.");
    case NoticeId::kSaved:
      return frmScales::tr("Saved: %1").arg(notice.text) + QStringLiteral(". ") + ViewingHint();
    case NoticeId::kNotKept:
      return frmScales::tr("Not kept. Modify (F2) brings your changes back.");
    case NoticeId::kNotSaved:
      return frmScales::tr("Not saved. Modify (F2) brings your changes back.");
    case NoticeId::kBroughtBack:
      return frmScales::tr("Your changes are here again and not saved yet. Ctrl+Z takes them back.");
    case NoticeId::kLibraryRead:
      return frmScales::tr("The library was read again. Ctrl+Z brings your changes back.");
    case NoticeId::kShowsOtherVersion:
      return frmScales::tr("This is the scale as it is now. Ctrl+Z brings your changes back.");
    case NoticeId::kFieldIsFull:
      return frmScales::tr("%1 Only %2 characters fit; the rest was left out.")
          .arg(Caption(controls, notice.field))
          .arg(controls.txtFields.at(static_cast<std::size_t>(notice.field)).longest);
    case NoticeId::kPatternIsFull:
      return frmScales::tr("%1 Only digits fit, %2 at most; the rest was left out.")
          .arg(Caption(controls, field::kIntervals))
          .arg(core::kMostPatternDigits);
    case NoticeId::kTextIsShortened:
      return frmScales::tr("The library holds more of this text than is shown. Saving replaces all of it.");
  }
  return {};
}

}  // namespace tonalith::editor
