// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A simulated user: selects the next random action for the open popup, the modal dialog, the active window or another
// one. Usually selects a typical action of that window, sometimes any control. Only reads the widgets.

#pragma once

#include "stress/action.h"
#include "stress/random_source.h"

class QWidget;

namespace tonalith::stress {

class User {
 public:
  explicit User(RandomSource& random) : random_(random) {}

  Action Next();
  /// The next step towards closing the program.
  Action NextClosingStep();

 private:
  Action InPopup(QWidget& popup);
  Action InMessage(QWidget& box);
  Action InWindow(QWidget& window);
  Action InSearch(QWidget& window);
  Action InPrint(QWidget& window);
  Action InFileDialog(QWidget& window);

  RandomSource& random_;
};

}  // namespace tonalith::stress
