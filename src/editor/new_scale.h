// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Starts a new scale: the major scale, of the type of the scale before it. Its sort number is the next one of its type
// and changes with the type until the user types another number.

#pragma once

#include <QString>

#include "editor/edited_scale.h"

namespace tonalith::editor {

class NewScale {
 public:
  /// Adds a record, pending.
  void Add(EditedScale& scale);
  /// Also gives a new record the next sort number of that type.
  void SetType(EditedScale& scale, const QString& typeId);
  /// The sort number that the record got with its type.
  [[nodiscard]] const QString& TypeSort() const { return typeSort_; }

 private:
  QString typeSort_;
};

}  // namespace tonalith::editor
