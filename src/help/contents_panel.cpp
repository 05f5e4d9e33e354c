// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/contents_panel.h"

#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

#include "help/padded_item_delegate.h"

namespace tonalith::help {
namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr int kAnchorRole = Qt::UserRole + 1;

}  // namespace

ContentsPanel::ContentsPanel(QWidget* parent) : QTreeWidget(parent) {
  setObjectName(QStringLiteral("HelpContents"));
  setAccessibleName(tr("Contents"));
  setHeaderHidden(true);
  setFrameShape(QFrame::NoFrame);
  setUniformRowHeights(true);
  setItemDelegate(new PaddedItemDelegate(this));
  connect(this, &QTreeWidget::itemClicked, this, &ContentsPanel::Choose);
  connect(this, &QTreeWidget::itemActivated, this, &ContentsPanel::Choose);
}

void ContentsPanel::SetBook(const HelpBook& book) {
  const QSignalBlocker quiet(this);
  clear();
  std::vector<QTreeWidgetItem*> parents;
  for (const ContentsEntry& entry : book.Contents()) {
    const std::size_t depth = std::min(static_cast<std::size_t>(entry.depth), parents.size());
    parents.resize(depth);
    auto* const item = parents.empty() ? new QTreeWidgetItem(this) : new QTreeWidgetItem(parents.back());
    item->setText(0, QString::fromStdString(entry.title));
    item->setToolTip(0, item->text(0));
    if (entry.target) {
      item->setData(0, kPageRole, QString::fromStdString(entry.target->page));
      item->setData(0, kAnchorRole, QString::fromStdString(entry.target->anchor));
    }
    parents.push_back(item);
  }
  // Expand a short list of contents completely.
  constexpr std::size_t kShort = 60;
  if (book.Contents().size() <= kShort) {
    expandAll();
  } else {
    expandToDepth(0);
  }
}

HelpTarget ContentsPanel::TargetOf(const QTreeWidgetItem* item) const {
  return {item->data(0, kPageRole).toString().toStdString(), item->data(0, kAnchorRole).toString().toStdString()};
}

void ContentsPanel::ShowTarget(const HelpTarget& target) {
  const QSignalBlocker quiet(this);
  QTreeWidgetItem* ofPage = nullptr;
  for (QTreeWidgetItemIterator at(this); *at != nullptr; ++at) {
    const HelpTarget candidate = TargetOf(*at);
    if (candidate == target) {
      ofPage = *at;
      break;
    }
    if (ofPage == nullptr && candidate.page == target.page) ofPage = *at;
  }
  setCurrentItem(ofPage);
  if (ofPage != nullptr) scrollToItem(ofPage);
}

void ContentsPanel::Choose(QTreeWidgetItem* item) {
  const HelpTarget target = TargetOf(item);
  if (!target.page.empty()) {
    Q_EMIT TargetChosen(target);
  } else {
    item->setExpanded(true);
  }
}

}  // namespace tonalith::help
