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

QPoint PlaceInWindow(const QWidget& control, const QPoint& place) { return control.mapTo(control.window(), place); }

/// As a window manager does before a click arrives.
void Activate(QWidget& window) {
  if (QApplication::activePopupWidget() == nullptr && !window.isActiveWindow()) window.activateWindow();
}

/// What the window system hands to the program. It is done when this returns, with everything that it led to.
class Pointer {
 public:
  explicit Pointer(QWindow& window) : window_(&window) {}

  void Press(const QPoint& place, Qt::MouseButton button) { Send(QEvent::MouseButtonPress, place, button, button); }
  void Release(const QPoint& place, Qt::MouseButton button) {
    Send(QEvent::MouseButtonRelease, place, button, Qt::NoButton);
  }
  void Move(const QPoint& place) { Send(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton); }

 private:
  void Send(QEvent::Type type, const QPoint& place, Qt::MouseButton button, Qt::MouseButtons held) {
    if (window_.isNull()) return;
    qt_handleMouseEvent(window_, place, window_->mapToGlobal(place), held, button, type, Qt::NoModifier, Now());
  }
  /// Two clicks one after the other are no double click.
  static int Now() {
    static int now = 0;
    return now += 5;
  }

  QPointer<QWindow> window_;
};

/// Clicks in a row; two are a double click.
bool ClickAt(QWidget& control, const QPoint& place, Qt::MouseButton button = Qt::LeftButton, int times = 1) {
  Activate(*control.window());
  QWindow* const window = WindowOf(control);
  if (window == nullptr) return false;
  const QPoint at = PlaceInWindow(control, place);
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
  const QPointer<QWindow> there(window);
  qt_handleKeyEvent(there, QEvent::KeyPress, key, modifiers, text);
  if (!there.isNull()) qt_handleKeyEvent(there, QEvent::KeyRelease, key, modifiers, text);
}

bool Click(QWidget& control) { return ClickAt(control, control.rect().center()); }

/// Where keys go: a popup takes all of them.
QWindow* KeyWindow(QWidget& window) {
  if (QWidget* const popup = QApplication::activePopupWidget()) return WindowOf(*popup);
  Activate(*window.window());
  return WindowOf(window);
}

/// One character after the other, each to what has the focus by then.
bool TypeText(QWidget& window, const QString& text) {
  const QPointer<QWidget> there(&window);
  for (const char32_t character : text.toUcs4()) {
    if (there.isNull() || !there->isVisible()) return true;
    const bool isLatin = character >= 32 && character < 127;
    const int key = isLatin ? QTest::asciiToKey(static_cast<char>(character)) : static_cast<int>(Qt::Key_unknown);
    PressKey(KeyWindow(*there), key, Qt::NoModifier, QString::fromUcs4(&character, 1));
  }
  return true;
}

/// What a key writes by itself.
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
  const QPointF place = control.rect().center();
  QWheelEvent event(place, control.mapToGlobal(place), {}, QPoint(0, turn), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&control, &event);
  return true;
}

bool Drag(QWidget& control, int pixels) {
  QWindow* const window = WindowOf(control);
  if (window == nullptr) return false;
  const QPoint from = PlaceInWindow(control, control.rect().center());
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

bool NameFile(const QString& name) {
  QWidget* const dialog = FindWindow(QStringLiteral("QFileDialog"));
  auto* const box = dialog == nullptr ? nullptr : dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (box == nullptr) return false;
  const QPointer<QWidget> there(dialog);
  Click(*box);
  box->selectAll();
  TypeText(*dialog, name);
  return there.isNull() || PressKeys(*there, QStringLiteral("Return"));
}

bool EraseIn(QWidget& control) {
  Click(control);
  const QPointer<QWidget> window(control.window());
  PressKeys(*window, QStringLiteral("Ctrl+A"));
  return window.isNull() || PressKeys(*window, QStringLiteral("Del"));
}

/// The verbs that need a control.
bool PerformOn(QWidget& control, const std::string& what, const QString& text) {
  const QPointer<QWidget> window(control.window());
  if (what == verb::kClick) return Click(control);
  if (what == verb::kDoubleClick) return ClickAt(control, control.rect().center(), Qt::LeftButton, 2);
  if (what == verb::kRightClick) return ClickAt(control, control.rect().center(), Qt::RightButton);
  if (what == verb::kWheel) return Wheel(control, text.toInt());
  if (what == verb::kDrag) return Drag(control, text.toInt());
  if (what == verb::kErase) return EraseIn(control);
  if (what == verb::kKeys) return PressKeys(control, text);
  if (what == verb::kMenu) return OpenMenu(control, text);
  if (what == verb::kActivate) return control.window()->activateWindow(), true;
  if (what == verb::kClose) return WindowOf(control) != nullptr && WindowOf(control)->close();
  if (what != verb::kType) return false;
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
  if (action.verb == verb::kEntry) return ChooseEntry(text.toInt());
  if (action.verb == verb::kAnswer) return Answer(text);
  if (action.verb == verb::kFile) return NameFile(text);
  QWidget* const control = FindControl(QString::fromStdString(action.target));
  return control != nullptr && PerformOn(*control, action.verb, text);
}

}  // namespace tonalith::stress
