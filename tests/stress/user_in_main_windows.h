// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Typical random actions in the two windows that a user works in longest.

#pragma once

#include "stress/action.h"
#include "stress/random_source.h"

class QWidget;

namespace tonalith::stress {

Action InMainWindow(QWidget& window, RandomSource& random);
Action InEditor(QWidget& window, RandomSource& random);

}  // namespace tonalith::stress
