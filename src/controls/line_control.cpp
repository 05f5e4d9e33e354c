// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/line_control.h"

namespace tonalith::controls {

LineControl::LineControl(const QString& name, Twips fromX, Twips fromY, Twips toX, Twips toY, QObject* parent)
    : QObject(parent), x1(fromX), y1(fromY), x2(toX), y2(toY) {
  setObjectName(name);
}

}  // namespace tonalith::controls
