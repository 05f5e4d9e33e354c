// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The controls of the main window and their fixed layout, in pixels of the client area at scale 1. The window owns the
// controls; the structure contains pointers to them by name.

#pragma once

#include "app/key_box.h"
#include "controls/data_control.h"
#include "core/msg_box.h"
#include "core/neck.h"
#include "print/picture_box.h"
#include "views/fretboard_view.h"
#include "views/staff_view.h"
#include "windows/fitting_label.h"
#include "windows/panel_button.h"

class QLineEdit;

namespace tonalith::app {

struct MainControls {
  static constexpr int kClientWidth = 1080;
  /// Depends on the neck: the buttons and the version line are placed relative to its lower edge.
  [[nodiscard]] static int ClientHeight(const core::Neck& neck);

  controls::DataControl* Data1 = nullptr;
  windows::FittingLabel* Label1 = nullptr;
  windows::FittingLabel* lblScaleType = nullptr;
  windows::FittingLabel* lblScaleDescription = nullptr;
  QLineEdit* txtScaleID = nullptr;
  QLineEdit* txtInterval = nullptr;
  KeyBox* cmbTranspose = nullptr;
  windows::FittingLabel* lblTranspose = nullptr;
  windows::FittingLabel* lblScaleNotes = nullptr;
  windows::FittingLabel* lblStatus = nullptr;
  windows::FittingLabel* Label3 = nullptr;
  /// The progress and the result of an install.
  windows::FittingLabel* lblInstall = nullptr;
  windows::PanelButton* cmdEdit = nullptr;
  windows::PanelButton* cmdUpdate = nullptr;
  windows::PanelButton* cmdListen = nullptr;
  windows::PanelButton* cmdPrint = nullptr;
  windows::PanelButton* cmdInstall = nullptr;
  print::PictureBox* printPic = nullptr;
  views::FretboardView* fretboard = nullptr;
  views::StaffView* staff = nullptr;
};

/// Creates all controls as children of `client`, in tab order. The message box must outlive them.
MainControls MakeMainControls(QWidget* client, const core::Neck& neck, core::MsgBox& msgBox);

/// Sets the text colours of the labels from the palette.
void ApplyInk(const MainControls& controls, const QPalette& palette);

}  // namespace tonalith::app
