// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A button of the help window's bars: an icon painted in the palette's colours, sharp at any scale factor, with its
// name as tooltip and accessible name.

#pragma once

#include <QAbstractButton>

namespace tonalith::help {

class HelpButton : public QAbstractButton {
  Q_OBJECT

 public:
  enum class Icon { kBack, kForward, kHome, kFind, kSmaller, kLarger, kUp, kDown, kClose };

  /// `keys` is shown in the tooltip; the window defines the shortcut.
  HelpButton(Icon icon, const QString& name, const QKeySequence& keys, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Icon icon_;
};

}  // namespace tonalith::help
