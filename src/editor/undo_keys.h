// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Undo and redo in text boxes. A box undoes its own typing first; the form undoes what the box no longer can.

#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>

class QWidget;

namespace tonalith::editor {

QList<QKeySequence> UndoKeys();
/// The desktop's own, and Ctrl+Y.
QList<QKeySequence> RedoKeys();

/// Undoes, or redoes, the last typing in a text box. False for another widget and when there is nothing to undo.
bool UndoInBox(QWidget* box);
bool RedoInBox(QWidget* box);

/// An event filter for text boxes: leaves the keys for undo and redo to the shortcuts of the form.
class UndoKeyFilter : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tonalith::editor
