// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rows with room above and below their text, for lists that are read as much as clicked. Owned by the view that it is
// made for; user-interface thread.

#pragma once

#include <QStyledItemDelegate>

namespace tonalith::help {

class PaddedItemDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index).grownBy(QMargins(0, kPadding, 0, kPadding));
  }

 private:
  static constexpr int kPadding = 4;
};

}  // namespace tonalith::help
