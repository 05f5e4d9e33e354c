// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/available_controls.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QSplitterHandle>
#include <QTabBar>
#include <algorithm>

namespace tonalith::stress {
namespace {

QString ClassOf(const QWidget& widget) { return QString::fromLatin1(widget.metaObject()->className()); }

/// The matching children of the window, in its order.
template <class Fits>
QWidgetList MatchingChildren(const QWidget& window, Fits&& fits) {
  QWidgetList matching;
  for (QWidget* const child : window.findChildren<QWidget*>()) {
    if (fits(*child)) matching << child;
  }
  return matching;
}

QWidgetList OfName(const QWidget& window, const QString& name) {
  return MatchingChildren(
      window, [&](const QWidget& child) { return child.objectName() == name && child.window() == &window; });
}

QWidgetList OfClass(const QWidget& window, const QString& name) {
  return MatchingChildren(window,
                          [&](const QWidget& child) { return ClassOf(child) == name && child.window() == &window; });
}

template <class... Kinds>
bool IsOneOf(const QWidget* widget) {
  return ((qobject_cast<const Kinds*>(widget) != nullptr) || ...);
}

/// Excludes the edit field of a combo box: the box itself is listed.
bool IsUsable(const QWidget* control) {
  if (IsOneOf<QComboBox>(control->parentWidget())) return false;
  return IsOneOf<QAbstractButton, QAbstractScrollArea, QAbstractSlider, QComboBox, QLineEdit, QMenuBar, QSplitterHandle,
                 QTabBar>(control);
}

}  // namespace

QString NameOf(const QWidget& window) { return window.objectName().isEmpty() ? ClassOf(window) : window.objectName(); }

QString AddressOf(QWidget& control) {
  QWidget& window = *control.window();
  const QString name = control.objectName();
  if (!name.isEmpty() && OfName(window, name).size() == 1) return NameOf(window) + QLatin1Char('/') + name;
  const auto number = OfClass(window, ClassOf(control)).indexOf(&control);
  return QStringLiteral("%1/%2#%3").arg(NameOf(window), ClassOf(control)).arg(number);
}

QWidget* FindWindow(const QString& name) {
  QWidget* const modal = QApplication::activeModalWidget();
  if (modal != nullptr && NameOf(*modal) == name) return modal;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && NameOf(*window) == name) return window;
  }
  return nullptr;
}

QWidget* FindControl(const QString& address) {
  const auto slash = address.indexOf(QLatin1Char('/'));
  QWidget* const window = FindWindow(address.left(slash));
  if (window == nullptr || slash < 0) return window;
  const QString name = address.mid(slash + 1);
  const auto mark = name.lastIndexOf(QLatin1Char('#'));
  const QWidgetList named = OfName(*window, name);
  QWidget* control = named.size() == 1 ? named.first() : nullptr;
  if (control == nullptr && mark > 0) control = OfClass(*window, name.left(mark)).value(name.mid(mark + 1).toInt());
  return control != nullptr && control->isVisible() ? control : nullptr;
}

std::vector<QWidget*> UsableControls(QWidget& window) {
  std::vector<QWidget*> usable;
  for (QWidget* const child : window.findChildren<QWidget*>()) {
    if (child->window() == &window && child->isVisible() && IsUsable(child)) usable.push_back(child);
  }
  return usable;
}

std::vector<QWidget*> ReachableWindows() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return {modal};
  std::vector<QWidget*> windows;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    const bool isWindow = window->windowType() == Qt::Window || window->windowType() == Qt::Dialog;
    if (isWindow && window->isVisible()) windows.push_back(window);
  }
  // Qt lists windows in the order of their addresses, which differs between runs.
  std::sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) { return NameOf(*a) < NameOf(*b); });
  return windows;
}

}  // namespace tonalith::stress
