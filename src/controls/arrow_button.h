// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One of the four buttons of a data control's bar: a painted arrow, with a bar in front of it where it goes to the end.
// Owned by its data control; user-interface thread; never fails.

#pragma once

#include <QAbstractButton>

namespace tonalith::controls {

class ArrowButton : public QAbstractButton {
  Q_OBJECT

 public:
  enum class Kind { kFirst, kPrevious, kNext, kLast };

  ArrowButton(const QString& name, const QString& accessibleName, Kind kind, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Kind kind_;
};

}  // namespace tonalith::controls
