// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The controls of the scale editor: made, bound and laid out here. The form owns them as its children; the structure
// only refers to them by their fixed names. Fields are addressed by their index.

#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <array>

#include "controls/data_control.h"
#include "controls/field_binding.h"
#include "editor/note_keyboard.h"
#include "editor/scale_fields.h"
#include "editor/type_box.h"
#include "windows/fitting_label.h"
#include "windows/panel_button.h"

namespace tonalith::editor {

/// One of the text boxes by index: the widget and its binding.
struct TextField {
  QWidget* box = nullptr;
  controls::FieldBinding* binding = nullptr;
  /// The longest text that the box accepts, in UTF-16 units.
  int longest = 0;

  [[nodiscard]] QString Text() const { return binding->Text(); }
  void SetText(const QString& text) const { binding->SetText(text); }
};

struct ScalesControls {
  controls::DataControl* datPrimaryRS = nullptr;
  /// Object names "txtFields(0)" and so on; nothing at index 6.
  std::array<TextField, kFieldCount> txtFields;
  QCheckBox* chkFields = nullptr;
  std::array<QLabel*, kFieldCount> lblLabels{};
  QLineEdit* txtScaleType = nullptr;
  TypeBox* Combo1 = nullptr;
  QLineEdit* txtIntervals = nullptr;
  QLineEdit* txtScaleIntervalTones = nullptr;
  QLineEdit* txtNotesToUse = nullptr;
  NoteKeyboard* keyboard = nullptr;
  windows::FittingLabel* lblNotice = nullptr;
  QWidget* picButtons = nullptr;
  windows::PanelButton* cmdAdd = nullptr;
  windows::PanelButton* cmdUpdate = nullptr;
  windows::PanelButton* cmdDelete = nullptr;
  windows::PanelButton* cmdRefresh = nullptr;
  windows::PanelButton* cmdClose = nullptr;
  windows::PanelButton* cmdModify = nullptr;
  windows::PanelButton* cmdApply = nullptr;

  [[nodiscard]] NoteButton* Note(int number) const { return keyboard->Notes().at(static_cast<std::size_t>(number)); }
};

/// Makes every control as a child of `form` and lays them out. The message box has to outlive them.
ScalesControls MakeScalesControls(QWidget* form, core::MsgBox& msgBox);

/// Enables the fields that can be changed in the mode, and Delete, if there is a record.
void EnableFields(const ScalesControls& controls, bool isModifying);

/// Shows and enables the remaining controls for the mode.
void ShowControls(const ScalesControls& controls, bool isModifying);

/// Gives boxes and labels their colours from the form's palette.
void ApplyInk(const ScalesControls& controls, const QPalette& palette);

}  // namespace tonalith::editor
