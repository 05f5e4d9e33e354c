// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/field_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

#include "paint/panel_painting.h"
#include "paint/theme.h"

namespace tonalith::windows {

FieldPanel::FieldPanel(QWidget* box, QWidget* parent, int padding) : QWidget(parent), box_(box) {
  constexpr int kSideMargin = 8;
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(kSideMargin, padding, kSideMargin, padding);
  row->addWidget(box);
  box->installEventFilter(this);
}

void FieldPanel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool canChange = box_->isEnabled() && !box_->property("readOnly").toBool();
  const auto ground = canChange ? QPalette::Base : QPalette::Window;
  paint::PaintPanel(painter, rect(), palette().color(QPalette::Active, ground), paint::OutlineColour(palette()),
                    box_->hasFocus());
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

}  // namespace tonalith::windows
