// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Actions in a window of the program. Only read the widgets.

#pragma once

#include <string>

#include "stress/action.h"
#include "stress/random_source.h"

class QWidget;

namespace tonalith::stress {

/// The address of a control by its name.
std::string TargetIn(QWidget& window, const char* control);

Action Click(QWidget& window, const char* control);
Action Keys(QWidget& window, const char* keys);
Action Type(QWidget& window, const char* control, std::string text);

/// A random action on a random control.
Action AnyControl(QWidget& window, RandomSource& random);

}  // namespace tonalith::stress
