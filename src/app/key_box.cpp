// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/key_box.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>
#include <optional>
#include <utility>

#include "core/typed_note.h"
#include "paint/drawing_surface_font.h"
#include "paint/panel_painting.h"
#include "paint/theme.h"

namespace tonalith::app {
namespace {

/// Whether the event is a shortcut of the window that a text box would accept itself: the keys that move through the
/// records, and Ctrl+E, which can be "end of line".
bool IsForTheWindow(const QKeyEvent& event) {
  const bool control = event.modifiers() == Qt::ControlModifier;
  return event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown ||
         (control && (event.key() == Qt::Key_Home || event.key() == Qt::Key_End || event.key() == Qt::Key_E));
}

/// Identifies a key of the keyboard. The symbol differs between press and release if Shift is released first; the scan
/// code does not. Synthetic events have no scan code.
quint64 KeyId(const QKeyEvent& event) {
  constexpr quint64 kIsScanCode = 1ULL << 32U;
  return event.nativeScanCode() != 0 ? kIsScanCode | event.nativeScanCode() : static_cast<quint64>(event.key());
}

/// Has a contrast of at least 4.5:1 to the background of the box in both themes.
QColor MarkColour(const QPalette& palette) {
  return paint::IsDark(palette) ? QColor(0xFF, 0x9A, 0x8A) : QColor(0xB3, 0x1B, 0x1B);
}

}  // namespace

KeyBox::KeyBox(const QString& name, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setEditable(true);
  // Not the font of the box: that makes Qt build the list, which may never be opened.
  lineEdit()->setFont(paint::BoldFont(font(), 14));
  setInsertPolicy(QComboBox::NoInsert);
  setMaxVisibleItems(12);
  // Completion would replace the text during typing.
  setCompleter(nullptr);
  setFocusPolicy(Qt::StrongFocus);
  lineEdit()->setFrame(false);
  lineEdit()->setMaxLength(40);
  lineEdit()->setTextMargins(6, 0, 0, 0);
  installEventFilter(this);
  connect(this, &QComboBox::activated, this, [this] { Emit(&KeyBox::Clicked); });
  // For an exact name Qt emits activated first.
  connect(lineEdit(), &QLineEdit::returnPressed, this, &KeyBox::SelectTypedNote);
  connect(this, &QComboBox::editTextChanged, this, &KeyBox::Mark);
}

// Kept: see docs/behaviour.md, A key that is no note reads as C and marks no note.
int KeyBox::ListIndex() const { return qMax(0, findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive)); }

void KeyBox::Choose(int index) {
  setCurrentIndex(index);
  Emit(&KeyBox::Clicked);
}

void KeyBox::SetDescription(const QString& description) {
  description_ = description;
  ApplyMark();
}

void KeyBox::HandleKeyPress(const QKeyEvent& event) {
  if (!event.isAutoRepeat()) heldKeys_.insert(KeyId(event));
}

// Ignore a release without a press: the key that closes a message box is released in the window under it.
void KeyBox::HandleKeyRelease(const QKeyEvent& event) {
  if (event.isAutoRepeat()) return;
  const bool wasPressedHere = heldKeys_.remove(KeyId(event));
  const bool wasComposed = std::exchange(isComposed_, false);
  if (!wasPressedHere && !wasComposed) return;
  const int item = findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (item >= 0 && item != currentIndex()) setCurrentIndex(item);
  Emit(&KeyBox::KeyReleased);
}

void KeyBox::Emit(void (KeyBox::*emitted)()) {
  const QPointer<KeyBox> self(this);
  ++runningSignals_;
  Q_EMIT(this->*emitted)();
  // A message box runs the event loop, which may destroy the window.
  if (!self.isNull()) --runningSignals_;
}

void KeyBox::SelectTypedNote() {
  if (findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0) return;
  const std::optional<core::NoteNumber> note = core::NoteOfTypedText(currentText().toStdString());
  if (note && *note < count()) Choose(*note);
}

void KeyBox::LeaveBox(Qt::FocusReason reason) {
  heldKeys_.clear();
  isComposed_ = false;
  // The user is still typing if a pop-up of the box opens, or a message box that the typed text has caused.
  if (reason != Qt::PopupFocusReason && runningSignals_ == 0) SelectTypedNote();
}

void KeyBox::Mark() {
  const bool isMarked = count() > 0 && !core::NoteOfTypedText(currentText().toStdString());
  if (isMarked == isMarked_) return;
  isMarked_ = isMarked;
  ApplyMark();
}

void KeyBox::ApplyMark() {
  setAccessibleDescription(
      isMarked_ ? tr("%1 The text is not the name of a note; the scale is shown from C.").arg(description_)
                : description_);
  QFont font = lineEdit()->font();
  font.setUnderline(isMarked_);
  lineEdit()->setFont(font);
  QPalette ink = palette();
  if (isMarked_) ink.setColor(QPalette::Text, MarkColour(palette()));
  lineEdit()->setPalette(ink);
  update();
}

bool KeyBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched != this) return QComboBox::eventFilter(watched, event);
  // The box has the focus and passes all keys to its line edit, so every key event arrives here.
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (!IsForTheWindow(*static_cast<QKeyEvent*>(event))) break;
      event->ignore();
      return true;
    case QEvent::KeyPress:
      HandleKeyPress(*static_cast<QKeyEvent*>(event));
      break;
    case QEvent::KeyRelease:
      HandleKeyRelease(*static_cast<QKeyEvent*>(event));
      break;
    case QEvent::InputMethod:
      isComposed_ = isComposed_ || !static_cast<QInputMethodEvent*>(event)->commitString().isEmpty();
      break;
    case QEvent::FocusOut:
      LeaveBox(static_cast<QFocusEvent*>(event)->reason());
      break;
    default:
      break;
  }
  return QComboBox::eventFilter(watched, event);
}

// Turning the wheel over a box without the focus must not transpose by accident.
void KeyBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void KeyBox::changeEvent(QEvent* event) {
  QComboBox::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && isMarked_) ApplyMark();
}

void KeyBox::showPopup() {
  QFont font = lineEdit()->font();
  font.setUnderline(false);
  view()->setFont(font);
  QComboBox::showPopup();
}

void KeyBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor background = palette().color(QPalette::Base);
  if (isMarked_) {
    // Two pixels, like the focus ring.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(MarkColour(palette()));
    painter.drawRoundedRect(QRectF(rect()), 6, 6);
    painter.setBrush(background);
    painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
  } else {
    const bool focus = hasFocus() || lineEdit()->hasFocus();
    paint::PaintPanel(painter, rect(), background, paint::OutlineColour(palette()), focus);
  }
  paint::PaintDropArrow(painter, rect(), palette());
}

}  // namespace tonalith::app
