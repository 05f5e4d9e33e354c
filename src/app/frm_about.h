// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The window that says what this program is: name, version, licences, where its data lie, and the notices of what it is
// built on. Modal to the window that it belongs to, while everything goes on behind it. Made when it is first asked
// for, and gone once it is closed or its owner goes. User-interface thread; does not fail.

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
  /// `appFolder` holds database, sounds, packs and help.
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

/// Shows the window of `owner`; one that is open comes to the front.
void ShowAbout(const std::string& appFolder, QWidget& owner);

/// Takes the window of `owner` away, if it is there.
void UnloadAbout(QWidget& owner);

}  // namespace tonalith::app
