// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The list of scale types, from which a type is picked by its name. It may stand on none, when the record's type number
// is not one of them. Painted like the other boxes of the form, which owns it; user-interface thread.

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
  /// Stands on the type whose number the text is, on none for any other text.
  void Show(const QString& typeNumber);
  /// The number of the type at a place in the list.
  [[nodiscard]] QString NumberAt(int index) const { return itemData(index).toString(); }

 protected:
  /// The open list has its keys for itself: Escape closes the list, not the form.
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tonalith::editor
