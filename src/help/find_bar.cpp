// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include "help/help_browser.h"
#include "help/help_button.h"

namespace tonalith::help {

FindBar::FindBar(HelpBrowser* page, QWidget* parent) : QWidget(parent), page_(page) {
  setObjectName(QStringLiteral("FindBar"));
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(12, 6, 8, 6);
  row->setSpacing(6);
  auto* const caption = new QLabel(tr("Find in this page:"), this);
  text_ = new QLineEdit(this);
  text_->setObjectName(QStringLiteral("txtFind"));
  text_->setAccessibleName(tr("Find in this page"));
  text_->setClearButtonEnabled(true);
  text_->setMaximumWidth(320);
  text_->installEventFilter(this);
  caption->setBuddy(text_);
  previous_ = new HelpButton(HelpButton::Icon::kUp, tr("Previous match"), QKeySequence(Qt::SHIFT | Qt::Key_F3), this);
  next_ = new HelpButton(HelpButton::Icon::kDown, tr("Next match"), QKeySequence(Qt::Key_F3), this);
  matches_ = new QLabel(this);
  matches_->setObjectName(QStringLiteral("lblPlaces"));
  auto* const close =
      new HelpButton(HelpButton::Icon::kClose, tr("Close the find bar"), QKeySequence(Qt::Key_Escape), this);
  row->addWidget(caption);
  row->addWidget(text_, 1);
  row->addWidget(previous_);
  row->addWidget(next_);
  row->addWidget(matches_);
  row->addStretch(1);
  row->addWidget(close);
  connect(text_, &QLineEdit::textChanged, this, &FindBar::TextChanged);
  connect(previous_, &QAbstractButton::clicked, this, &FindBar::FindPrevious);
  connect(next_, &QAbstractButton::clicked, this, &FindBar::FindNext);
  connect(close, &QAbstractButton::clicked, this, &FindBar::Close);
  hide();
}

void FindBar::Open() {
  show();
  text_->setFocus(Qt::ShortcutFocusReason);
  text_->selectAll();
  ShowMatchCount(page_->Finder().HighlightText(text_->text()));
}

void FindBar::Close() {
  hide();
  page_->Finder().HighlightText({});
  Q_EMIT Closed();
}

void FindBar::FindNext() { Go(false); }

void FindBar::FindPrevious() { Go(true); }

void FindBar::Go(bool backwards) {
  if (!isVisible() || text_->text().isEmpty()) {
    Open();
    return;
  }
  page_->Finder().FindAgain(text_->text(), backwards);
}

void FindBar::PageChanged() {
  if (isVisible()) ShowMatchCount(page_->Finder().HighlightText(text_->text()));
}

void FindBar::TextChanged() {
  const int matches = page_->Finder().HighlightText(text_->text());
  if (matches > 0) page_->Finder().FindFromHere(text_->text());
  ShowMatchCount(matches);
}

void FindBar::ShowMatchCount(int matches) {
  const bool isAsked = !text_->text().isEmpty();
  previous_->setEnabled(matches > 0);
  next_->setEnabled(matches > 0);
  QString words = matches == 0 ? tr("Not on this page") : tr("%n places", nullptr, matches);
  if (matches == 1) words = tr("1 place");
  matches_->setText(isAsked ? words : QString());
  text_->setAccessibleDescription(matches_->text());
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
      Go((key->modifiers() & Qt::ShiftModifier) != 0);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tonalith::help
