// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/line_control.h"

namespace tonalith::views {

LineControl::LineControl(const QString& name, paint::Twips fromX, paint::Twips fromY, paint::Twips toX,
                         paint::Twips toY, QObject* parent)
    : QObject(parent), x1(fromX), y1(fromY), x2(toX), y2(toY) {
  setObjectName(name);
}

}  // namespace tonalith::views
