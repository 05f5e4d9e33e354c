// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A line of the form: two end points in twips and a width in pixels, reached by its name like any other control. It has
// no widget of its own; the view that owns it paints it. User-interface thread only; never fails.

#pragma once

#include <QObject>

#include "controls/twips.h"

namespace tonalith::controls {

class LineControl : public QObject {
  Q_OBJECT

 public:
  LineControl(const QString& name, Twips fromX, Twips fromY, Twips toX, Twips toY, QObject* parent);

  Twips x1;
  Twips y1;
  Twips x2;
  Twips y2;
  int BorderWidth = 1;
};

}  // namespace tonalith::controls
