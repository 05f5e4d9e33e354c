// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/user_input.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QStyleHints>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "stress/available_controls.h"

namespace tonalith::stress {
namespace {

QWindow* WindowOf(QWidget& control) { return control.window()->windowHandle(); }

QPoint PositionInWindow(const QWidget& control, const QPoint& position) {
  return control.mapTo(control.window(), position);
}

/// A window manager activates the window before it delivers a click.
void Activate(QWidget& window) {
  if (QApplication::activePopupWidget() == nullptr && !window.isActiveWindow()) window.activateWindow();
}

/// Sends mouse events as the window system does, synchronously.
class Pointer {
 public:
  explicit Pointer(QWindow& window) : window_(&window) {}

  void Press(const QPoint& position, Qt::MouseButton button) {
    Send(QEvent::MouseButtonPress, position, button, button);
  }
  void Release(const QPoint& position, Qt::MouseButton button) {
    Send(QEvent::MouseButtonRelease, position, button, Qt::NoButton);
  }
  void Move(const QPoint& position) { Send(QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton); }

 private:
  void Send(QEvent::Type type, const QPoint& position, Qt::MouseButton button, Qt::MouseButtons buttons) {
    if (window_.isNull()) return;
    qt_handleMouseEvent(window_, position, window_->mapToGlobal(position), buttons, button, type, Qt::NoModifier,
                        Now());
  }
  /// For single clicks the double-click interval is 0, so the distance of 5 ms prevents double clicks.
  static int Now() {
    static int now = 0;
    return now += 5;
  }

  QPointer<QWindow> window_;
};

/// Two clicks are a double click.
bool ClickAt(QWidget& control, const QPoint& position, Qt::MouseButton button = Qt::LeftButton, int times = 1) {
  Activate(*control.window());
  QWindow* const window = WindowOf(control);
  if (window == nullptr) return false;
  const QPoint at = PositionInWindow(control, position);
  static const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(times == 2 ? interval : 0);
  Pointer pointer(*window);
  for (; times > 0; --times) {
    pointer.Press(at, button);
    pointer.Release(at, button);
  }
  return true;
}

void PressKey(QWindow* window, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QPointer<QWindow> guard(window);
  qt_handleKeyEvent(guard, QEvent::KeyPress, key, modifiers, text);
  if (!guard.isNull()) qt_handleKeyEvent(guard, QEvent::KeyRelease, key, modifiers, text);
}

bool Click(QWidget& control) { return ClickAt(control, control.rect().center()); }

/// The window that receives keys: an open popup receives all of them.
QWindow* KeyWindow(QWidget& window) {
  if (QWidget* const popup = QApplication::activePopupWidget()) return WindowOf(*popup);
  Activate(*window.window());
  return WindowOf(window);
}

/// Sends each character to the control that has the focus at that time.
bool TypeText(QWidget& window, const QString& text) {
  const QPointer<QWidget> guard(&window);
  for (const char32_t character : text.toUcs4()) {
    if (guard.isNull() || !guard->isVisible()) return true;
    const bool isLatin = character >= 32 && character < 127;
    const int key = isLatin ? QTest::asciiToKey(static_cast<char>(character)) : static_cast<int>(Qt::Key_unknown);
    PressKey(KeyWindow(*guard), key, Qt::NoModifier, QString::fromUcs4(&character, 1));
  }
  return true;
}

/// The text that a key without modifiers types.
QString TextOf(QKeyCombination keys) {
  if (keys.keyboardModifiers() != Qt::NoModifier) return {};
  const char letter = keys.key() < 128 ? static_cast<char>(keys.key()) : '\0';
  return letter == '\0' ? QString() : QString(QLatin1Char(letter)).toLower();
}

bool PressKeys(QWidget& window, const QString& text) {
  const QKeySequence keys(text, QKeySequence::PortableText);
  QWindow* const handle = KeyWindow(window);
  if (handle == nullptr || keys.isEmpty()) return false;
  PressKey(handle, keys[0].key(), keys[0].keyboardModifiers(), TextOf(keys[0]));
  return true;
}

bool Wheel(QWidget& control, int turn) {
  Activate(*control.window());
  const QPointF position = control.rect().center();
  QWheelEvent event(position, control.mapToGlobal(position), {}, QPoint(0, turn), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&control, &event);
  return true;
}

bool Drag(QWidget& control, int pixels) {
  QWindow* const window = WindowOf(control);
  if (window == nullptr) return false;
  const QPoint from = PositionInWindow(control, control.rect().center());
  Pointer pointer(*window);
  pointer.Press(from, Qt::LeftButton);
  pointer.Move(from + QPoint(pixels / 2, 0));
  pointer.Move(from + QPoint(pixels, 0));
  pointer.Release(from + QPoint(pixels, 0), Qt::LeftButton);
  return true;
}

bool OpenMenu(QWidget& window, const QString& name) {
  auto* const bar = window.findChild<QMenuBar*>();
  if (bar == nullptr) return false;
  for (QAction* const menu : bar->actions()) {
    if (menu->objectName() == name) return ClickAt(*bar, bar->actionGeometry(menu).center());
  }
  return false;
}

QAbstractItemView* ListOf(QWidget* popup) {
  return popup == nullptr ? nullptr : popup->findChild<QAbstractItemView*>();
}

QList<QAction*> EntriesOf(const QMenu& menu) {
  QList<QAction*> entries;
  for (QAction* const entry : menu.actions()) {
    if (!entry->isSeparator() && entry->isVisible()) entries << entry;
  }
  return entries;
}

bool ChooseEntry(int number) {
  QWidget* const popup = QApplication::activePopupWidget();
  if (auto* const menu = qobject_cast<QMenu*>(popup)) {
    QAction* const entry = EntriesOf(*menu).value(number);
    return entry != nullptr && ClickAt(*menu, menu->actionGeometry(entry).center());
  }
  QAbstractItemView* const list = ListOf(popup);
  if (list == nullptr) return false;
  const QModelIndex index = list->model()->index(number, 0);
  if (!index.isValid()) return false;
  list->scrollTo(index);
  return ClickAt(*list->viewport(), list->visualRect(index).center());
}

bool Answer(const QString& text) {
  auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box == nullptr) return false;
  for (QAbstractButton* const button : box->buttons()) {
    if (PlainCaption(button->text()) == text) return Click(*button);
  }
  return PressKeys(*box, text);
}

bool EnterFileName(const QString& name) {
  QWidget* const dialog = FindWindow(QStringLiteral("QFileDialog"));
  auto* const box = dialog == nullptr ? nullptr : dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (box == nullptr) return false;
  const QPointer<QWidget> guard(dialog);
  Click(*box);
  box->selectAll();
  TypeText(*dialog, name);
  return guard.isNull() || PressKeys(*guard, QStringLiteral("Return"));
}

bool EraseIn(QWidget& control) {
  Click(control);
  const QPointer<QWidget> window(control.window());
  PressKeys(*window, QStringLiteral("Ctrl+A"));
  return window.isNull() || PressKeys(*window, QStringLiteral("Del"));
}

/// The kinds of actions that need a control.
bool PerformOn(QWidget& control, const std::string& kind, const QString& text) {
  const QPointer<QWidget> window(control.window());
  if (kind == action_kind::kClick) return Click(control);
  if (kind == action_kind::kDoubleClick) return ClickAt(control, control.rect().center(), Qt::LeftButton, 2);
  if (kind == action_kind::kRightClick) return ClickAt(control, control.rect().center(), Qt::RightButton);
  if (kind == action_kind::kWheel) return Wheel(control, text.toInt());
  if (kind == action_kind::kDrag) return Drag(control, text.toInt());
  if (kind == action_kind::kErase) return EraseIn(control);
  if (kind == action_kind::kKeys) return PressKeys(control, text);
  if (kind == action_kind::kMenu) return OpenMenu(control, text);
  if (kind == action_kind::kActivate) return control.window()->activateWindow(), true;
  if (kind == action_kind::kClose) return WindowOf(control) != nullptr && WindowOf(control)->close();
  if (kind != action_kind::kType) return false;
  Click(control);
  return window.isNull() || TypeText(*window, text);
}

}  // namespace

QString PlainCaption(QString caption) { return caption.remove(QLatin1Char('&')); }

int EntryCount(QWidget* popup) {
  if (auto* const menu = qobject_cast<QMenu*>(popup)) return static_cast<int>(EntriesOf(*menu).size());
  const QAbstractItemView* const list = ListOf(popup);
  return list == nullptr ? 0 : list->model()->rowCount();
}

bool Perform(const Action& action) {
  const QString text = QString::fromStdString(action.text);
  if (action.kind == action_kind::kEntry) return ChooseEntry(text.toInt());
  if (action.kind == action_kind::kAnswer) return Answer(text);
  if (action.kind == action_kind::kFile) return EnterFileName(text);
  QWidget* const control = FindControl(QString::fromStdString(action.target));
  return control != nullptr && PerformOn(*control, action.kind, text);
}

}  // namespace tonalith::stress
