// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A window that paints its buttons in known colours, to record how they look.

#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <string>

#include "support/recorded_painting.h"

namespace tonalith::tests {

class ButtonLook : public testing::Test {
 protected:
  ButtonLook() {
    QPalette palette;
    palette.setColor(QPalette::ButtonText, QColor(0x11, 0x22, 0x33));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0xaa, 0xbb, 0xcc));
    window_.setPalette(palette);
    // The pointer is at the corner.
    window_.resize(600, 400);
    window_.show();
    window_.activateWindow();
    QApplication::processEvents();
  }
  /// What a button of the window draws at its preferred size.
  static std::string Look(QAbstractButton& button) {
    button.setGeometry(QRect(QPoint(500, 300), button.sizeHint()));
    return RecordPainting(button).AsText();
  }

  QWidget window_;
};

}  // namespace tonalith::tests
