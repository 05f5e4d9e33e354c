// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_focus.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <optional>
#include <vector>

#include "paint/colours.h"

namespace tonalith::views {
namespace {

/// How far the ring reaches beyond its note, in pixels.
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

FretboardFocus::FretboardFocus(const FretboardControls& controls, QWidget& view) : controls_(controls), view_(view) {
  for (NoteImage* image : controls_.Images()) image->installEventFilter(this);
}

int FretboardFocus::Focused() const {
  const std::vector<NoteImage*>& images = controls_.Images();
  const auto found =
      std::find_if(images.begin(), images.end(), [](const NoteImage* image) { return image->hasFocus(); });
  return found == images.end() ? -1 : static_cast<int>(found - images.begin());
}

void FretboardFocus::SetTabStop(int index) {
  if (index == tabStop_) return;
  if (tabStop_ >= 0) controls_.Image(tabStop_).setFocusPolicy(Qt::ClickFocus);
  tabStop_ = index;
  if (tabStop_ >= 0) controls_.Image(tabStop_).setFocusPolicy(Qt::StrongFocus);
}

bool FretboardFocus::MoveBy(const QKeyEvent& event) {
  const std::optional<Move> move = MoveOf(event);
  const int focused = Focused();
  if (!move || focused < 0) return false;
  if (const std::optional<int> next = controls_.Layout().Neighbour(focused, *move, controls_.VisibleNotes())) {
    controls_.Image(*next).setFocus(Qt::OtherFocusReason);
  }
  return true;
}

void FretboardFocus::Keep() {
  if (Focused() < 0) return;
  isFocusPending_ = true;
  view_.setFocus(Qt::OtherFocusReason);
}

void FretboardFocus::Restore() {
  const std::vector<bool> visible = controls_.VisibleNotes();
  const auto isVisible = [&](int index) { return index >= 0 && visible[static_cast<std::size_t>(index)]; };
  if (!isVisible(tabStop_)) {
    const std::optional<int> near = tabStop_ < 0 ? std::nullopt : controls_.Layout().Nearest(tabStop_, visible);
    const auto first = std::find(visible.begin(), visible.end(), true);
    if (near) {
      SetTabStop(*near);
    } else {
      SetTabStop(first == visible.end() ? -1 : static_cast<int>(first - visible.begin()));
    }
  }
  if (isFocusPending_ && view_.hasFocus() && tabStop_ >= 0) {
    controls_.Image(tabStop_).setFocus(Qt::OtherFocusReason);
  }
  isFocusPending_ = isFocusPending_ && view_.hasFocus();
}

bool FretboardFocus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    if (event->type() == QEvent::FocusIn) {
      const auto reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason != Qt::ActiveWindowFocusReason) ringShown_ = IsKeyboardReason(reason);
      SetTabStop(controls_.IndexOf(watched));
    }
    view_.update(
        static_cast<NoteImage*>(watched)->geometry().adjusted(-kRingReach, -kRingReach, kRingReach, kRingReach));
  }
  return QObject::eventFilter(watched, event);
}

void FretboardFocus::PaintRing(QPainter& painter) const {
  const int focused = Focused();
  if (focused < 0 || !ringShown_) return;
  const QRectF disc(controls_.Image(focused).geometry());
  const bool square = controls_.Image(focused).Picture() == NotePicture::kKeyNote;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  const auto ring = [&](double distance, double width, const QColor& colour) {
    const QRectF box = disc.adjusted(-distance, -distance, distance, distance);
    const double radius = square ? 7.5 + distance : box.width() / 2;
    painter.setPen(QPen(colour, width));
    painter.drawRoundedRect(box, radius, radius);
  };
  ring(1.6, 4.6, QColor(0x14, 0x0a, 0x06));
  ring(1.6, 2.4, QColor(paint::kAmber));
}

}  // namespace tonalith::views
