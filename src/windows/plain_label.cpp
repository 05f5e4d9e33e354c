// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/plain_label.h"

#include <QLabel>

namespace tonalith::windows {

QLabel* MakePlainLabel(const QString& name, const QString& text, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

void SetTextColour(QLabel& label, const QColor& colour) {
  QPalette palette = label.parentWidget()->palette();
  palette.setColor(QPalette::WindowText, colour);
  label.setPalette(palette);
}

}  // namespace tonalith::windows
