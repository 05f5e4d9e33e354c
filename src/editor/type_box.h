// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The list of scale types, where the user chooses a type by its name. No type is current when the record's type number
// is not in the list.

#pragma once

#include <QComboBox>
#include <vector>

#include "editor/scale_types.h"

namespace tonalith::editor {

class TypeBox : public QComboBox {
  Q_OBJECT

 public:
  TypeBox(const QString& name, QWidget* parent);

  void SetTypes(const std::vector<ScaleType>& types);
  /// Selects the type with that number; none for any other text.
  void Show(const QString& typeNumber);
  /// The number of the type at an index of the list.
  [[nodiscard]] QString NumberAt(int index) const { return itemData(index).toString(); }

 protected:
  /// The open list takes its keys before the form: Escape closes the list, not the form.
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tonalith::editor
