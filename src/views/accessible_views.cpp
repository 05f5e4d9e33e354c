// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/accessible_views.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "views/fretboard_view.h"
#include "views/staff_view.h"

namespace tonalith::views {
namespace {

/// The neck. Its children are the visible controls.
class AccessibleFretboard : public QAccessibleWidget {
 public:
  explicit AccessibleFretboard(QWidget* view) : QAccessibleWidget(view, QAccessible::Grouping) {}

  int childCount() const override { return static_cast<int>(VisibleChildren().size()); }

  QAccessibleInterface* child(int index) const override {
    const QWidgetList children = VisibleChildren();
    return index >= 0 && index < children.size() ? QAccessible::queryAccessibleInterface(children.at(index)) : nullptr;
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    return child == nullptr ? -1 : static_cast<int>(VisibleChildren().indexOf(qobject_cast<QWidget*>(child->object())));
  }

 private:
  [[nodiscard]] QWidgetList VisibleChildren() const {
    QWidgetList visible;
    for (QObject* object : widget()->children()) {
      auto* child = qobject_cast<QWidget*>(object);
      if (child != nullptr && !child->isHidden()) visible << child;
    }
    return visible;
  }
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  if (auto* fretboard = qobject_cast<FretboardView*>(object)) return new AccessibleFretboard(fretboard);
  if (auto* staffView = qobject_cast<StaffView*>(object)) {
    return new QAccessibleWidget(staffView, QAccessible::Graphic);
  }
  return nullptr;
}

}  // namespace

void InstallAccessibleViews() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace tonalith::views
