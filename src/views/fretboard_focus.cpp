// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The neck as one tab stop: arrow keys between the visible notes, the focus ring, and tool tips of the fret numbers.

#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QToolTip>
#include <algorithm>

#include "views/fretboard_view.h"

namespace tonalith::views {
namespace {

constexpr int kRingReach = 6;

std::optional<Move> MoveOf(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Left:
      return Move::kLeft;
    case Qt::Key_Right:
      return Move::kRight;
    case Qt::Key_Up:
      return Move::kUp;
    case Qt::Key_Down:
      return Move::kDown;
    case Qt::Key_Home:
      return Move::kHome;
    case Qt::Key_End:
      return Move::kEnd;
    default:
      return std::nullopt;
  }
}

bool IsKeyboardReason(Qt::FocusReason reason) {
  return reason != Qt::MouseFocusReason && reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
}

}  // namespace

int FretboardView::FocusedNote() const {
  const auto found =
      std::find_if(images_.begin(), images_.end(), [](const NoteImage* image) { return image->hasFocus(); });
  return found == images_.end() ? -1 : static_cast<int>(found - images_.begin());
}

void FretboardView::SetTabStop(int index) {
  if (index == tabStop_) return;
  if (tabStop_ >= 0) Image(tabStop_).setFocusPolicy(Qt::ClickFocus);
  tabStop_ = index;
  if (tabStop_ >= 0) Image(tabStop_).setFocusPolicy(Qt::StrongFocus);
}

void FretboardView::RestoreFocus() {
  const std::vector<bool> visible = VisibleNotes();
  const auto isVisible = [&](int index) { return index >= 0 && visible[static_cast<std::size_t>(index)]; };
  if (!isVisible(tabStop_)) {
    const std::optional<int> near = tabStop_ < 0 ? std::nullopt : layout_.Nearest(tabStop_, visible);
    const auto first = std::find(visible.begin(), visible.end(), true);
    if (near) {
      SetTabStop(*near);
    } else {
      SetTabStop(first == visible.end() ? -1 : static_cast<int>(first - visible.begin()));
    }
  }
  if (isFocusPending_ && hasFocus() && tabStop_ >= 0) Image(tabStop_).setFocus(Qt::OtherFocusReason);
  isFocusPending_ = isFocusPending_ && hasFocus();
}

void FretboardView::keyPressEvent(QKeyEvent* event) {
  const std::optional<Move> move = MoveOf(*event);
  const int focused = FocusedNote();
  if (!move || focused < 0) {
    QWidget::keyPressEvent(event);
    return;
  }
  if (const std::optional<int> next = layout_.Neighbour(focused, *move, VisibleNotes())) {
    Image(*next).setFocus(Qt::OtherFocusReason);
  }
  event->accept();
}

bool FretboardView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    auto* image = static_cast<NoteImage*>(watched);
    if (event->type() == QEvent::FocusIn) {
      const auto reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason != Qt::ActiveWindowFocusReason) ringShown_ = IsKeyboardReason(reason);
      SetTabStop(static_cast<int>(std::find(images_.begin(), images_.end(), image) - images_.begin()));
    }
    update(image->geometry().adjusted(-kRingReach, -kRingReach, kRingReach, kRingReach));
  }
  return QWidget::eventFilter(watched, event);
}

bool FretboardView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    for (const auto& [fret, marker] : markers_) {
      if (FretNumberBox(fret).contains(help->pos() + DesignRect().topLeft())) {
        QToolTip::showText(help->globalPos(), marker->toolTip(), this);
        return true;
      }
    }
  }
  return QWidget::event(event);
}

}  // namespace tonalith::views
