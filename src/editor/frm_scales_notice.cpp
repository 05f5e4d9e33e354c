// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The line that says what can be done, what would be saved, and what has just happened.

#include <QAccessible>

#include "core/field_limits.h"
#include "editor/frm_scales.h"
#include "editor/text_boxes.h"

namespace tonalith::editor {

void frmScales::WireLimits() {
  // Queued: the text that a box did take is announced first.
  const auto tell = [this](const auto* box, const QString& text) {
    using Box = std::remove_cvref_t<decltype(*box)>;
    connect(
        box, &Box::inputRejected, this, [this, text] { ShowLimit(text); }, Qt::QueuedConnection);
  };
  for (int i = 0; i < kFieldCount; ++i) {
    const QString caption = c_.lblLabels.at(static_cast<std::size_t>(i))->text();
    const QString text = tr("%1 Only %2 characters fit; the rest was left out.").arg(caption).arg(Field(i).longest);
    if (const auto* const line = qobject_cast<QLineEdit*>(Field(i).box)) tell(line, text);
    if (const auto* const lines = qobject_cast<TextBox*>(Field(i).box)) tell(lines, text);
  }
  const QString text = tr("%1 Only digits fit, %2 at most; the rest was left out.")
                           .arg(c_.lblLabels[field::kIntervals]->text())
                           .arg(core::kMostPatternDigits);
  tell(c_.txtIntervals, text);
}

void frmScales::ShowLimit(const QString& text) {
  limit_ = text;
  ShowNotice();
}

void frmScales::ShowNotice() {
  const QString text = NoticeText();
  if (text == c_.lblNotice->text()) return;
  c_.lblNotice->setText(text);
  if (text.isEmpty()) return;
  QAccessibleEvent alert(c_.lblNotice, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

QString frmScales::ViewingHint() { return tr("Modify (F2) to change this scale or add one, Escape to close."); }

QString frmScales::ChosenNotesText() const {
  const NoteSelection selected = SelectedNotes();
  if (selected.none()) return tr("No note is selected.");
  const std::string built = editor::ScaleIntervalBuild(selected);
  const QString saves = tr("Apply saves %1: %2")
                            .arg(QString::fromStdString(built), QString::fromStdString(StepWordsText(built)).trimmed());
  return selected.count() == 1 ? saves + QStringLiteral(". ") + tr("One note is not a scale.") : saves;
}

QString frmScales::NoticeText() {
  if (!limit_.isEmpty()) return limit_;
  const NoteSelection selected = SelectedNotes();
  if (ModifyMode && areNotesChosen_ && (selected.count() <= 1 || editor::ScaleIntervalBuild(selected) != Pattern())) {
    return news_.isEmpty() ? ChosenNotesText() : news_;
  }
  if (areNotesTakenBack_) return tr("Back to the saved notes. Ctrl+Z on a note brings yours back.");
  if (!ModifyMode && selected != RecordNotes()) {
    return tr("Not kept. The scale still is %1. Modify (F2) brings your changes back.")
        .arg(Field(field::kIntervals).Text());
  }
  if (!news_.isEmpty()) return news_;
  if (c_.datPrimaryRS->IsEditPending()) return tr("Not saved yet.");
  return ModifyMode ? tr("Choose notes and press Apply (Ctrl+Enter). Add begins a new scale.") : ViewingHint();
}

}  // namespace tonalith::editor
