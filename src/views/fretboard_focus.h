// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The keyboard focus of the neck. The neck is one tab stop; arrow keys move between the visible notes. A note that has
// the focus from the keyboard gets a ring. Controls and view must outlive it.

#pragma once

#include <QObject>

#include "views/fretboard_controls.h"

class QKeyEvent;

namespace tonalith::views {

class FretboardFocus : public QObject {
 public:
  FretboardFocus(const FretboardControls& controls, QWidget& view);

  /// The index of the note that the Tab key reaches, -1 if no note is visible.
  [[nodiscard]] int TabStop() const { return tabStop_; }

  /// Moves the focus. Returns false for a key that moves nothing and if no note has the focus.
  bool MoveBy(const QKeyEvent& event);
  /// To be called before notes are hidden: the neck keeps the focus of a note, which Qt would give to another control.
  void Keep();
  /// To be called when notes are shown: moves the tab stop to a visible note, and a kept focus to the tab stop.
  void Restore();

  /// Paints the ring, in pixels of the view.
  void PaintRing(QPainter& painter) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The index of the note that has the focus, -1 for none.
  [[nodiscard]] int Focused() const;
  void SetTabStop(int index);

  const FretboardControls& controls_;
  QWidget& view_;
  int tabStop_ = -1;
  bool ringShown_ = false;
  bool isFocusPending_ = false;
};

}  // namespace tonalith::views
