// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/field_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

#include "controls/panel_painting.h"
#include "controls/theme.h"

namespace tonalith::controls {

FieldPanel::FieldPanel(QWidget* box, QWidget* parent, int room) : QWidget(parent), box_(box) {
  constexpr int kBesideBox = 8;
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(kBesideBox, room, kBesideBox, room);
  row->addWidget(box);
  box->installEventFilter(this);
}

void FieldPanel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool canChange = box_->isEnabled() && !box_->property("readOnly").toBool();
  const auto ground = canChange ? QPalette::Base : QPalette::Window;
  PaintPanel(painter, rect(), palette().color(QPalette::Active, ground), OutlineInk(palette()), box_->hasFocus());
}

bool FieldPanel::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::EnabledChange:
    case QEvent::ReadOnlyChange:
      update();
      break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
      setVisible(event->type() == QEvent::ShowToParent);
      break;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tonalith::controls
