// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The controls of the scale editor, made, bound and laid out in one go. The form owns them as its children; the
// structure only knows them by their names. Fields are known by their index, and the index is the design: 6 is the
// check box, so there is no text box of that index. User-interface thread.

#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <array>

#include "controls/data_control.h"
#include "controls/field_binding.h"
#include "editor/note_button.h"
#include "editor/type_box.h"
#include "windows/fitting_label.h"
#include "windows/panel_button.h"

namespace tonalith::editor {

inline constexpr int kFieldCount = 8;
namespace field {
inline constexpr int kScaleId = 0;
inline constexpr int kName = 1;
inline constexpr int kDescription = 2;
inline constexpr int kScaleTypeId = 3;
inline constexpr int kIntervals = 4;
inline constexpr int kStartNote = 5;
inline constexpr int kChord = 6;
inline constexpr int kSort = 7;
}  // namespace field

/// One of the text boxes by index: the widget, and what binds it to its field.
struct TextField {
  QWidget* box = nullptr;
  controls::FieldBinding* binding = nullptr;
  /// What the box takes, in UTF-16 units.
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

/// Gives boxes and labels their colours from the form's palette.
void ApplyInk(const ScalesControls& controls, const QPalette& palette);

}  // namespace tonalith::editor
