// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The key box: the twelve note names to choose from, and a text of its own that may be anything. Typing an exact note
// name selects its item. Clicked is emitted when an item is chosen, KeyReleased for every key let go in the box.
// Owned by the main window; user-interface thread.

#pragma once

#include <QComboBox>

namespace tonalith::app {

class KeyBox : public QComboBox {
  Q_OBJECT

 public:
  KeyBox(const QString& name, QWidget* parent);

  /// The item whose text the box shows; 0, the C that every unknown name reads as, for any other text.
  [[nodiscard]] int ListIndex() const;

  /// Selects an item as a click on it does.
  void Choose(int index);

  void showPopup() override;

 Q_SIGNALS:
  void Clicked();
  void KeyReleased();

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TakeKeyRelease();
};

}  // namespace tonalith::app
