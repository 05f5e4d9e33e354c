// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A line of the form: two end points in twips, a width in pixels, and a name like any other control. It has no widget;
// the view that owns it paints it.

#pragma once

#include <QObject>

#include "paint/twips.h"

namespace tonalith::views {

class LineControl : public QObject {
  Q_OBJECT

 public:
  LineControl(const QString& name, paint::Twips fromX, paint::Twips fromY, paint::Twips toX, paint::Twips toY,
              QObject* parent);

  paint::Twips x1;
  paint::Twips y1;
  paint::Twips x2;
  paint::Twips y2;
  int BorderWidth = 1;
};

}  // namespace tonalith::views
