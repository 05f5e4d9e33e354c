// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The About window: name, version and licences of the program, the folder of its data, and the third-party licences. It
// is modal to its owner, but nothing waits for it. It deletes itself when it is closed.

#pragma once

#include <string>

#include "windows/panel_button.h"
#include "windows/window.h"

class QLabel;
class QLineEdit;
class QTextEdit;

namespace tonalith::app {

class frmAbout : public windows::Window<QDialog> {
  Q_OBJECT

 public:
  /// `appFolder` is the folder of database, sounds, packs and help.
  frmAbout(const std::string& appFolder, QWidget* owner);

  void cmdClose_Click();

 protected:
  void ApplyTheme() override;

 private:
  void MakeControls(const QString& appFolder);
  void LayOut();

  QWidget* picIcon_ = nullptr;
  QLabel* lblName_ = nullptr;
  QLabel* lblVersion_ = nullptr;
  QLabel* lblPurpose_ = nullptr;
  QLabel* lblLicence_ = nullptr;
  QLabel* lblFolder_ = nullptr;
  QLineEdit* txtFolder_ = nullptr;
  QLabel* lblNotices_ = nullptr;
  QTextEdit* txtNotices_ = nullptr;
  windows::PanelButton* cmdClose_ = nullptr;
};

}  // namespace tonalith::app
