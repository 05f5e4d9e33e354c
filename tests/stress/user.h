// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The user who decides by dice what to do next: with an open popup, a modal dialog, the window in front or another one;
// mostly what that window is for, sometimes anything that can be clicked. Looks at the widgets, touches none.
// User-interface thread; never fails.

#pragma once

#include "stress/action.h"
#include "stress/random_source.h"

class QWidget;

namespace tonalith::stress {

class User {
 public:
  explicit User(RandomSource& dice) : dice_(dice) {}

  Action Next();
  /// The next step towards an end of the program.
  Action NextTowardsEnd();

 private:
  Action InPopup(QWidget& popup);
  Action InMessage(QWidget& box);
  Action InWindow(QWidget& window);
  Action InMain(QWidget& window);
  Action InMainByKeys(QWidget& window);
  Action InEditor(QWidget& window);
  Action InEditorFields(QWidget& window);
  Action InSearch(QWidget& window);
  Action InPrint(QWidget& window);
  Action InFileDialog(QWidget& window);
  Action Anything(QWidget& window);

  Action Click(QWidget& window, const char* control) const;
  Action Keys(QWidget& window, const char* keys) const;
  Action Type(QWidget& window, const char* control, std::string text) const;

  RandomSource& dice_;
};

}  // namespace tonalith::stress
