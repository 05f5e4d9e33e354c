// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcut>
#include <type_traits>

#include "paint/theme.h"

namespace tonalith::windows {
namespace {

template <class Base>
constexpr bool kIsDialog = std::is_same_v<Base, QDialog>;

QPalette WindowPalette() { return paint::WarmPalette(QApplication::palette()); }

}  // namespace

template <class Base>
Window<Base>::Window(const QString& name, QWidget* owner, Qt::WindowFlags flags)
    : Base(owner, std::is_same_v<Base, QWidget> ? flags | Qt::Window : flags) {
  this->setObjectName(name);
  this->setPalette(WindowPalette());
}

template <class Base>
void Window<Base>::FollowSystem() {
  this->setPalette(WindowPalette());
  ApplyTheme();
}

template <class Base>
void Window<Base>::FinishConstruction() {
  isComplete_ = true;
  // The palette may have changed since the construction began.
  FollowSystem();
  if constexpr (std::is_same_v<Base, QWidget>) {
    // A shortcut, because a control may use the key press. QDialog has its own handling.
    QObject::connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { Escape(); });
  }
}

template <class Base>
void Window<Base>::Escape() {
  if constexpr (kIsDialog<Base>) {
    this->reject();
  } else {
    this->close();
  }
}

template <class Base>
bool Window<Base>::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ApplicationPaletteChange:  // Qt does not pass it to changeEvent.
    case QEvent::ThemeChange:
    case QEvent::FontChange:
      if (isComplete_) FollowSystem();
      break;
    case QEvent::Show:
      // A window that is not deleted when it closes can be opened again.
      if (!event->spontaneous()) isUnloaded_ = false;
      break;
    default:
      break;
  }
  // The event may destroy the window: do not access members after it.
  return Base::event(event);
}

template <class Base>
void Window<Base>::closeEvent(QCloseEvent* event) {
  const QPointer<QWidget> self(this);
  if (!isUnloaded_) {
    if (!isComplete_ || !Form_QueryUnload()) {
      event->ignore();
      return;
    }
    if (self.isNull()) return;
    isUnloaded_ = true;
    Form_Unload();
    if (self.isNull()) return;
  }
  Base::closeEvent(event);
}

template <class Base>
void Window<Base>::keyPressEvent(QKeyEvent* event) {
  if (!kIsDialog<Base> || !event->matches(QKeySequence::Cancel)) {
    Base::keyPressEvent(event);
  } else if (isComplete_) {
    Escape();
  }
}

template class Window<QMainWindow>;
template class Window<QDialog>;
template class Window<QWidget>;

}  // namespace tonalith::windows
