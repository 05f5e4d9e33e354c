// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The key box: the twelve note names to choose from, and a text of its own that may be anything. Typing an exact note
// name selects its item. Enter, or leaving the box, selects the item of any other text that means a note. The box marks
// a text that means none, and says so after its accessible description. Clicked is emitted when an item is chosen,
// KeyReleased for every key that was pressed and released in the box. Owned by the main window; user-interface thread.

#pragma once

#include <QComboBox>
#include <QSet>

namespace tonalith::app {

class KeyBox : public QComboBox {
  Q_OBJECT

 public:
  KeyBox(const QString& name, QWidget* parent);

  /// The item whose text the box shows; 0, the C that every unknown name reads as, for any other text.
  [[nodiscard]] int ListIndex() const;

  /// Selects an item as a click on it does.
  void Choose(int index);

  /// What the box says about itself to assistive technology while its text means a note.
  void SetDescription(const QString& description);

  /// Whether the text means none of the twelve notes.
  [[nodiscard]] bool IsMarked() const { return isMarked_; }

  void showPopup() override;

 Q_SIGNALS:
  void Clicked();
  void KeyReleased();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TakeKeyPress(const QKeyEvent& event);
  void TakeKeyRelease(const QKeyEvent& event);
  /// Selects the item that the text means, unless the text is an item already.
  void TakeText();
  void LeaveBox(Qt::FocusReason reason);
  /// Emits a signal.
  void Tell(void (KeyBox::*notice)());
  void Mark();
  void ApplyMark();

  QString description_;
  /// The keys that were pressed in the box and are still held.
  QSet<quint64> heldKeys_;
  /// An input method has put a text into the box and has kept the key press for itself.
  bool isComposed_ = false;
  bool isMarked_ = false;
  /// How many notices are being handled; a handler may have put a message box over the window.
  int telling_ = 0;
};

}  // namespace tonalith::app
