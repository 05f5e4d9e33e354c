// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// An item delegate with padding above and below the text.

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
