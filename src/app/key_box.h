// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The key box: a list of the twelve note names with an editable text. Typing an exact note name selects its item. Other
// spellings of a note ("Bb") select their item when the user presses Enter or leaves the box. A text that is no note is
// marked, and the accessible description reports it.

#pragma once

#include <QComboBox>
#include <QSet>

namespace tonalith::app {

class KeyBox : public QComboBox {
  Q_OBJECT

 public:
  KeyBox(const QString& name, QWidget* parent);

  /// The index of the item with exactly this text; 0, which is C, for any other text.
  [[nodiscard]] int ListIndex() const;

  /// Selects an item as a click on it does.
  void Choose(int index);

  /// Sets the accessible description for a text that is a note.
  void SetDescription(const QString& description);

  /// Whether the text is not the name of a note.
  [[nodiscard]] bool IsMarked() const { return isMarked_; }

  void showPopup() override;

 Q_SIGNALS:
  /// An item was chosen.
  void Clicked();
  /// A key was pressed and released in the box.
  void KeyReleased();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void HandleKeyPress(const QKeyEvent& event);
  void HandleKeyRelease(const QKeyEvent& event);
  /// Selects the item of the typed note, unless the text is already that of an item.
  void SelectTypedNote();
  void LeaveBox(Qt::FocusReason reason);
  /// Emits a signal; its handlers may destroy the box.
  void Emit(void (KeyBox::*emitted)());
  void Mark();
  void ApplyMark();

  QString description_;
  /// The keys that were pressed in the box and not yet released.
  QSet<quint64> heldKeys_;
  /// An input method has entered text. It consumes the key press, so only the release arrives.
  bool isComposed_ = false;
  bool isMarked_ = false;
  /// The number of signals whose handlers are running; a handler may show a message box.
  int runningSignals_ = 0;
};

}  // namespace tonalith::app
