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

/// Shortcuts of the window that a text box would keep for itself: the keys that walk through the records, and Ctrl+E,
/// which moves the cursor to the end of a line.
bool IsForTheWindow(const QKeyEvent& event) {
  const bool control = event.modifiers() == Qt::ControlModifier;
  return event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown ||
         (control && (event.key() == Qt::Key_Home || event.key() == Qt::Key_End || event.key() == Qt::Key_E));
}

/// Names a key of the keyboard. The symbol differs between press and release when Shift is released first; the scan
/// code does not. Events that programs make have none.
quint64 KeyId(const QKeyEvent& event) {
  constexpr quint64 kIsScanCode = 1ULL << 32U;
  return event.nativeScanCode() != 0 ? kIsScanCode | event.nativeScanCode() : static_cast<quint64>(event.key());
}

/// Keeps 4.5:1 on the ground of the box in either theme.
QColor MarkInk(const QPalette& palette) {
  return paint::IsDark(palette) ? QColor(0xFF, 0x9A, 0x8A) : QColor(0xB3, 0x1B, 0x1B);
}

}  // namespace

KeyBox::KeyBox(const QString& name, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setEditable(true);
  // Of the text alone: a font for all of the box makes Qt build the list, which may never be opened.
  lineEdit()->setFont(paint::BoldFont(font(), 14));
  setInsertPolicy(QComboBox::NoInsert);
  setMaxVisibleItems(12);
  // Completion would put another text in the place of the one that is being typed.
  setCompleter(nullptr);
  setFocusPolicy(Qt::StrongFocus);
  lineEdit()->setFrame(false);
  lineEdit()->setMaxLength(40);
  lineEdit()->setTextMargins(6, 0, 0, 0);
  installEventFilter(this);
  connect(this, &QComboBox::activated, this, [this] { Tell(&KeyBox::Clicked); });
  // For an exact name Qt has emitted activated by then.
  connect(lineEdit(), &QLineEdit::returnPressed, this, &KeyBox::TakeText);
  connect(this, &QComboBox::editTextChanged, this, &KeyBox::Mark);
}

int KeyBox::ListIndex() const { return qMax(0, findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive)); }

void KeyBox::Choose(int index) {
  setCurrentIndex(index);
  Tell(&KeyBox::Clicked);
}

void KeyBox::SetDescription(const QString& description) {
  description_ = description;
  ApplyMark();
}

void KeyBox::TakeKeyPress(const QKeyEvent& event) {
  if (!event.isAutoRepeat()) heldKeys_.insert(KeyId(event));
}

// A release counts only if its press came here: the key that closes a message box is released in the window below it.
void KeyBox::TakeKeyRelease(const QKeyEvent& event) {
  if (event.isAutoRepeat()) return;
  const bool wasPressedHere = heldKeys_.remove(KeyId(event));
  const bool wasComposed = std::exchange(isComposed_, false);
  if (!wasPressedHere && !wasComposed) return;
  const int item = findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (item >= 0 && item != currentIndex()) setCurrentIndex(item);
  Tell(&KeyBox::KeyReleased);
}

void KeyBox::Tell(void (KeyBox::*notice)()) {
  const QPointer<KeyBox> self(this);
  ++telling_;
  Q_EMIT(this->*notice)();
  // A message box lets events through, and one of them may have taken the window away.
  if (!self.isNull()) --telling_;
}

void KeyBox::TakeText() {
  if (findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0) return;
  const std::optional<core::NoteNumber> note = core::NoteOfTypedText(currentText().toStdString());
  if (note && *note < count()) Choose(*note);
}

void KeyBox::LeaveBox(Qt::FocusReason reason) {
  heldKeys_.clear();
  isComposed_ = false;
  // The list and the menus of the box belong to it; a message box that its own text has raised ends before the typing.
  if (reason != Qt::PopupFocusReason && telling_ == 0) TakeText();
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
  if (isMarked_) ink.setColor(QPalette::Text, MarkInk(palette()));
  lineEdit()->setPalette(ink);
  update();
}

bool KeyBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched != this) return QComboBox::eventFilter(watched, event);
  // The box has the focus and hands keys on to its text, so all of them pass here.
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (!IsForTheWindow(*static_cast<QKeyEvent*>(event))) break;
      event->ignore();
      return true;
    case QEvent::KeyPress:
      TakeKeyPress(*static_cast<QKeyEvent*>(event));
      break;
    case QEvent::KeyRelease:
      TakeKeyRelease(*static_cast<QKeyEvent*>(event));
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

// A wheel that scrolls over the window must not transpose by accident.
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
  const QColor ground = palette().color(QPalette::Base);
  if (isMarked_) {
    // As wide as the focus ring.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(MarkInk(palette()));
    painter.drawRoundedRect(QRectF(rect()), 6, 6);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
  } else {
    const bool focus = hasFocus() || lineEdit()->hasFocus();
    paint::PaintPanel(painter, rect(), ground, paint::OutlineColour(palette()), focus);
  }
  paint::PaintDropArrow(painter, rect(), palette());
}

}  // namespace tonalith::app
