// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/text_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>

#include "controls/panel_button.h"
#include "controls/theme.h"

namespace tonalith::search {

TextPanel::TextPanel(QLineEdit* text, QWidget* parent) : QWidget(parent), text_(text) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(8, 6, 8, 6);
  row->addWidget(text);
  text->setFrame(false);
  text->installEventFilter(this);
}

void TextPanel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor ground = palette().color(QPalette::Base);
  controls::PaintPanel(painter, rect(), ground, controls::OutlineInk(palette()), text_->hasFocus());
}

bool TextPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return QWidget::eventFilter(watched, event);
}

}  // namespace tonalith::search
