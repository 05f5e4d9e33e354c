// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/key_box.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include "controls/drawing_surface_font.h"
#include "controls/panel_painting.h"
#include "controls/theme.h"

namespace tonalith::app {
namespace {

/// The keys that walk through the records wherever the focus is; a text box would keep some of them for itself.
bool MovesTheRecord(const QKeyEvent& event) {
  const bool control = event.modifiers() == Qt::ControlModifier;
  return event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown ||
         (control && (event.key() == Qt::Key_Home || event.key() == Qt::Key_End));
}

}  // namespace

KeyBox::KeyBox(const QString& name, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setEditable(true);
  // Of the text alone: a font for all of the box makes Qt build the list, which may never be opened.
  lineEdit()->setFont(controls::BoldFont(font(), 14));
  setInsertPolicy(QComboBox::NoInsert);
  setMaxVisibleItems(12);
  // Completion would put another text in the place of the one that is being typed.
  setCompleter(nullptr);
  setFocusPolicy(Qt::StrongFocus);
  lineEdit()->setFrame(false);
  lineEdit()->setMaxLength(40);
  lineEdit()->setTextMargins(6, 0, 0, 0);
  installEventFilter(this);
  connect(this, &QComboBox::activated, this, [this] { Q_EMIT Clicked(); });
}

int KeyBox::ListIndex() const { return qMax(0, findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive)); }

void KeyBox::Choose(int index) {
  setCurrentIndex(index);
  Q_EMIT Clicked();
}

void KeyBox::TakeKeyRelease() {
  const int item = findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (item >= 0 && item != currentIndex()) setCurrentIndex(item);
  Q_EMIT KeyReleased();
}

bool KeyBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && MovesTheRecord(*static_cast<QKeyEvent*>(event))) {
    event->ignore();
    return true;
  }
  // The box has the focus and hands keys on to its text, so all of them pass here.
  if (event->type() == QEvent::KeyRelease && watched == this && !static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
    TakeKeyRelease();
  }
  return QComboBox::eventFilter(watched, event);
}

void KeyBox::showPopup() {
  view()->setFont(lineEdit()->font());
  QComboBox::showPopup();
}

void KeyBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool focus = hasFocus() || lineEdit()->hasFocus();
  controls::PaintPanel(painter, rect(), palette().color(QPalette::Base), controls::OutlineInk(palette()), focus);
  controls::PaintDropArrow(painter, rect(), palette());
}

}  // namespace tonalith::app
