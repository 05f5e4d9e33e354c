// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/editor_wiring.h"

#include <QShortcut>

#include "editor/frm_scales.h"
#include "editor/text_boxes.h"
#include "editor/undo_keys.h"

namespace tonalith::editor {
namespace {

using controls::DataControl;

void WireFields(frmScales& form, const ScalesControls& c) {
  auto* const undoKeys = new UndoKeyFilter(&form);
  for (int i = 0; i < kFieldCount; ++i) {
    const TextField& textField = c.txtFields.at(static_cast<std::size_t>(i));
    if (textField.binding == nullptr) continue;
    QObject::connect(textField.binding, &controls::FieldBinding::Edited, &form,
                     [&form, i](const QString& before) { form.FieldTyped(i, before); });
    QObject::connect(textField.binding, &controls::FieldBinding::Changed, &form,
                     [&form, i] { form.txtFields_Change(i); });
    textField.box->installEventFilter(undoKeys);
  }
  c.txtIntervals->installEventFilter(undoKeys);
}

void WireLimits(frmScales& form, const ScalesControls& c) {
  // Queued: assistive technology announces the text that the box took first.
  const auto wire = [&form](const auto* box, const Notice& limit) {
    using Box = std::remove_cvref_t<decltype(*box)>;
    QObject::connect(
        box, &Box::inputRejected, &form, [&form, limit] { form.ShowLimit(limit); }, Qt::QueuedConnection);
  };
  for (int i = 0; i < kFieldCount; ++i) {
    QWidget* const box = c.txtFields.at(static_cast<std::size_t>(i)).box;
    const Notice limit{MessageId::kFieldIsFull, {}, i};
    if (const auto* const line = qobject_cast<QLineEdit*>(box)) wire(line, limit);
    if (const auto* const lines = qobject_cast<TextBox*>(box)) wire(lines, limit);
  }
  wire(c.txtIntervals, {MessageId::kPatternIsFull});
}

void WireButtons(frmScales& form, const ScalesControls& c) {
  for (NoteButton* const note : c.keyboard->Notes()) {
    // note0_Click to note11_Click.
    QObject::connect(note, &QAbstractButton::clicked, &form,
                     [&form, note] { form.ScaleLabelClick(note->objectName().toStdString()); });
  }
  const auto press = [&form](const windows::PanelButton* button, void (frmScales::*handler)()) {
    QObject::connect(button, &QAbstractButton::clicked, &form, handler);
  };
  press(c.cmdModify, &frmScales::cmdModify_Click);
  press(c.cmdApply, &frmScales::cmdApply_Click);
  press(c.cmdAdd, &frmScales::cmdAdd_Click);
  press(c.cmdUpdate, &frmScales::cmdUpdate_Click);
  press(c.cmdDelete, &frmScales::cmdDelete_Click);
  press(c.cmdRefresh, &frmScales::cmdRefresh_Click);
  press(c.cmdClose, &frmScales::cmdClose_Click);
  QObject::connect(c.Combo1, &QComboBox::activated, &form, &frmScales::Combo1_Click);
  QObject::connect(c.txtIntervals, &QLineEdit::textEdited, &form, &frmScales::txtIntervals_Typed);
}

void WireRecords(frmScales& form, const ScalesControls& c) {
  c.datPrimaryRS->OnConflict([&form] { return form.DecideConflict(); });
  QObject::connect(c.datPrimaryRS, &DataControl::Moved, &form, &frmScales::RecordMoved);
  QObject::connect(c.datPrimaryRS, &DataControl::Written, &form, &frmScales::RecordWritten);
}

void AddShortcuts(frmScales& form, const ScalesControls& c) {
  const auto add = [&form](const QList<QKeySequence>& keys, auto&& run) {
    auto* const shortcut = new QShortcut(&form);
    shortcut->setKeys(keys);
    QObject::connect(shortcut, &QShortcut::activated, &form, run);
  };
  add({Qt::Key_PageUp}, [data = c.datPrimaryRS] { data->RunMove(&DataControl::MovePrevious); });
  add({Qt::Key_PageDown}, [data = c.datPrimaryRS] { data->RunMove(&DataControl::MoveNext); });
  add({Qt::Key_F2}, [modify = c.cmdModify] { modify->click(); });
  add({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}, [apply = c.cmdApply] { apply->click(); });
  add(UndoKeys(), [&form] { form.UndoChange(); });
  add(RedoKeys(), [&form] { form.RedoChange(); });
  c.cmdModify->setToolTip(frmScales::tr("Change this scale (F2)"));
  c.cmdApply->setToolTip(frmScales::tr("Keep the selected notes (Ctrl+Enter)"));
}

}  // namespace

void WireEditor(frmScales& form) {
  const ScalesControls& c = form.Controls();
  WireFields(form, c);
  WireLimits(form, c);
  WireButtons(form, c);
  WireRecords(form, c);
  AddShortcuts(form, c);
}

}  // namespace tonalith::editor
