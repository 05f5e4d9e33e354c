// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/note_button.h"

#include <QKeyEvent>
#include <QPainter>

#include "core/text.h"
#include "paint/colours.h"

namespace tonalith::editor {
namespace {

/// A green that keeps a contrast of more than 4.5 to 1 on the pale green and on white.
constexpr QRgb kSelectedFrame = 0xFF1F6B2E;
constexpr QRgb kUnselectedFrame = 0xFF9A948C;

void PaintTick(QPainter& painter, const QRectF& box) {
  painter.setPen(QPen(QColor(kSelectedFrame), 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const QPointF foot(box.right() - 15, box.top() + 15.5);
  painter.drawPolyline(QPolygonF({foot + QPointF(-4.5, -4.5), foot, foot + QPointF(7, -8)}));
}

}  // namespace

NoteButton::NoteButton(core::NoteNumber number, QWidget* parent) : QCheckBox(parent) {
  tag_ = core::kSharpNotes[static_cast<std::size_t>(number)];
  setObjectName(QStringLiteral("note%1").arg(number));
  setText(QString::fromStdString(tag_));
  setAccessibleName(text());
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setFixedSize(kNoteButtonSize);
  // Assistive technology may check the box instead of pressing it.
  connect(this, &QAbstractButton::toggled, this, [this](bool isNowChecked) {
    if (isNowChecked == IsSelected(colours_)) return;
    Q_EMIT clicked(isNowChecked);
    setChecked(IsSelected(colours_));
  });
}

QSize NoteButton::sizeHint() const { return kNoteButtonSize; }

void NoteButton::SetColours(const NoteColours& colours) {
  if (colours == colours_) return;
  colours_ = colours;
  setChecked(IsSelected(colours));
  update();
}

std::string NoteButton::Tag() const { return core::Trim(tag_).empty() ? "C" : tag_; }

void NoteButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QCheckBox::keyPressEvent(event);
}

void NoteButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool selected = IsSelected(colours_);
  const bool hover = isEnabled() && (underMouse() || isDown());
  const qreal corner = selected ? 14 : 5;
  const QRectF box = QRectF(rect()).adjusted(4, 4, -4, -4);
  painter.setPen(QPen(QColor(selected || hover ? kSelectedFrame : kUnselectedFrame), selected ? 2.6 : 1.2));
  painter.setBrush(QColor(paint::ToRgb(colours_.back)));
  painter.drawRoundedRect(box, corner, corner);
  if (hasFocus()) {
    painter.setPen(QPen(QColor(paint::kAccent), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), corner + 3, corner + 3);
  }
  if (selected) PaintTick(painter, box);
  QFont captionFont = font();
  captionFont.setPixelSize(19);
  captionFont.setWeight(QFont::Bold);
  painter.setFont(captionFont);
  painter.setPen(QColor(paint::ToRgb(colours_.fore)));
  painter.drawText(box, Qt::AlignCenter, text());
}

}  // namespace tonalith::editor
