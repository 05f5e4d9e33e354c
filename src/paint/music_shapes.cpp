// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/music_shapes.h"

#include <QPainterPathStroker>
#include <QTransform>

namespace tonalith::paint::shapes {
namespace {

/// The outline of `line` drawn with a pen of the given width, without overlaps.
QPainterPath Stroked(const QPainterPath& line, double width) {
  QPainterPathStroker pen;
  pen.setWidth(width);
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  QPainterPath outline = pen.createStroke(line);
  outline.setFillRule(Qt::WindingFill);
  return outline;
}

QPainterPath Bar(double x1, double y1, double x2, double y2, double halfHeight) {
  QPainterPath bar(QPointF(x1, y1 - halfHeight));
  bar.lineTo(x2, y2 - halfHeight);
  bar.lineTo(x2, y2 + halfHeight);
  bar.lineTo(x1, y1 + halfHeight);
  bar.closeSubpath();
  return bar;
}

}  // namespace

QPainterPath TrebleClef() {
  QPainterPath curl(QPointF(0.5, 4));
  curl.cubicTo(-5, 3, -5, -7, 2, -7);
  curl.cubicTo(11, -7, 12, 9.5, 1, 9.5);
  curl.cubicTo(-13, 9.5, -13, -8, -4, -16);
  curl.cubicTo(3, -22, 7, -28, 5, -37);
  curl.cubicTo(3, -43, -3, -36, -2.5, -28);
  curl.lineTo(3.5, 15);
  curl.cubicTo(4.5, 22, -5, 23, -5.5, 17);
  QPainterPath clef = Stroked(curl, 2);
  clef.addEllipse(QPointF(-4, 17), 2.4, 2.4);
  return clef;
}

QPainterPath WholeNote() {
  QPainterPath hole;
  hole.addEllipse(QPointF(0, 0), 2.6, 4);
  QPainterPath head;
  head.addEllipse(QPointF(0, 0), 7.2, 4.8);
  head.addPath(QTransform().rotate(-24).map(hole).toReversed());
  head.setFillRule(Qt::WindingFill);
  return head;
}

QPainterPath Sharp() {
  // Stems and bars cover complete pixels at scale 1, so that they stay black.
  QPainterPath sharp = Bar(-1.5, 1, -0.5, 1, 7);
  sharp.addPath(Bar(0.5, -1, 1.5, -1, 7));
  sharp.addPath(Bar(-2.5, -2.5, 2.5, -3.5, 1));
  sharp.addPath(Bar(-2.5, 3.5, 2.5, 2.5, 1));
  sharp.setFillRule(Qt::WindingFill);
  return sharp;
}

}  // namespace tonalith::paint::shapes
