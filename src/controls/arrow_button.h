// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A button of a data control: a painted arrow, with a bar at its tip for the first and the last record. Owned by its
// data control; does not fail.

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
