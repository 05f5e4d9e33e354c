// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A button of the help window's bars: a sign painted in the palette's colours, crisp at any scale, with its name as
// tooltip and for assistive technology. Owned by its parent widget; user-interface thread.

#pragma once

#include <QAbstractButton>

namespace tonalith::help {

class HelpButton : public QAbstractButton {
  Q_OBJECT

 public:
  enum class Icon { kBack, kForward, kHome, kFind, kSmaller, kLarger, kUp, kDown, kClose };

  /// `keys` are told in the tooltip; the shortcut itself is the window's.
  HelpButton(Icon icon, const QString& name, const QKeySequence& keys, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Icon icon_;
};

}  // namespace tonalith::help
