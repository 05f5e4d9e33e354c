// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The About window: name, version and licences of the program, the folder of its data, and the third-party licences. It
// is modal to its owner, but nothing waits for it. It is deleted when it or its owner is closed.

#pragma once

#include <QDialog>
#include <string>

#include "windows/panel_button.h"

class QLabel;
class QLineEdit;
class QTextEdit;

namespace tonalith::app {

class frmAbout : public QDialog {
  Q_OBJECT

 public:
  /// `appFolder` is the folder of database, sounds, packs and help.
  frmAbout(const std::string& appFolder, QWidget* owner);

  void cmdClose_Click();

 protected:
  bool event(QEvent* event) override;

 private:
  void MakeControls(const QString& appFolder);
  void LayOut();
  void ApplyTheme();

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

/// Opens the About window of `owner`, or brings the open one to the front.
void ShowAbout(const std::string& appFolder, QWidget& owner);

/// Deletes the About window of `owner`, if there is one.
void UnloadAbout(QWidget& owner);

}  // namespace tonalith::app
