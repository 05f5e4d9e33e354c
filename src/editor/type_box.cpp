// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/type_box.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QPainter>

#include "core/field_limits.h"
#include "paint/panel_painting.h"
#include "paint/theme.h"

namespace tonalith::editor {

TypeBox::TypeBox(const QString& name, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setMaxVisibleItems(16);
  setFocusPolicy(Qt::StrongFocus);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
  view()->installEventFilter(this);
}

void TypeBox::SetTypes(const std::vector<ScaleType>& types) {
  const QString shown = currentIndex() < 0 ? QString() : NumberAt(currentIndex());
  clear();
  for (const ScaleType& type : types)
    addItem(QString::fromStdString(type.name).left(core::kLongestTypeName), QString::number(type.id));
  Show(shown);
}

void TypeBox::Show(const QString& typeNumber) { setCurrentIndex(findData(typeNumber.trimmed())); }

bool TypeBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) event->accept();
  return QComboBox::eventFilter(watched, event);
}

void TypeBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paint::PaintPanel(painter, rect(), palette().color(QPalette::Base), paint::OutlineColour(palette()), hasFocus());
  const QRect place = rect().adjusted(11, 0, -30, 0);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(currentText(), Qt::ElideRight, place.width()));
  paint::PaintDropArrow(painter, rect(), palette());
}

}  // namespace tonalith::editor
