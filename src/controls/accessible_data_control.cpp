// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/accessible_data_control.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "controls/data_control.h"

namespace tonalith::controls {
namespace {

class AccessibleDataControl : public QAccessibleWidget {
 public:
  explicit AccessibleDataControl(DataControl& control)
      : QAccessibleWidget(&control, QAccessible::Grouping), control_(control) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Description ? control_.PositionText() : QAccessibleWidget::text(kind);
  }

 private:
  DataControl& control_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  auto* const control = qobject_cast<DataControl*>(object);
  return control == nullptr ? nullptr : new AccessibleDataControl(*control);
}

}  // namespace

void InstallAccessibleDataControl() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  static_cast<void>(installed);
}

void AnnouncePosition(DataControl& control) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent changed(&control, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&changed);
}

}  // namespace tonalith::controls
