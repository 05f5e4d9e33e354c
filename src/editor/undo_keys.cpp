// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/undo_keys.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace tonalith::editor {

QList<QKeySequence> UndoKeys() { return QKeySequence::keyBindings(QKeySequence::Undo); }

QList<QKeySequence> RedoKeys() {
  QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Redo);
  const QKeySequence common(Qt::CTRL | Qt::Key_Y);
  if (!keys.contains(common)) keys.append(common);
  return keys;
}

bool UndoInBox(QWidget* box) {
  auto* const line = qobject_cast<QLineEdit*>(box);
  auto* const text = qobject_cast<QPlainTextEdit*>(box);
  if (line != nullptr && line->isUndoAvailable()) {
    line->undo();
    return true;
  }
  if (text == nullptr || !text->document()->isUndoAvailable()) return false;
  text->undo();
  return true;
}

bool RedoInBox(QWidget* box) {
  auto* const line = qobject_cast<QLineEdit*>(box);
  auto* const text = qobject_cast<QPlainTextEdit*>(box);
  if (line != nullptr && line->isRedoAvailable()) {
    line->redo();
    return true;
  }
  if (text == nullptr || !text->document()->isRedoAvailable()) return false;
  text->redo();
  return true;
}

bool UndoKeyFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.matches(QKeySequence::Undo) || RedoKeys().contains(QKeySequence(key.keyCombination()))) {
      event->ignore();
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tonalith::editor
