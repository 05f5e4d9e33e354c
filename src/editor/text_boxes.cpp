// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/text_boxes.h"

#include <QHelpEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace tonalith::editor {
namespace {

constexpr int kTextMargin = 1;

// Does not lay out a text above the limit: the box cuts it before it is painted. A paste is cut before it is inserted,
// but assistive technology and input methods insert into the document.
class LimitedLayout : public QPlainTextDocumentLayout {
 public:
  LimitedLayout(QTextDocument* document, int longest) : QPlainTextDocumentLayout(document), longest_(longest) {}

 protected:
  void documentChanged(int from, int charsRemoved, int charsAdded) override {
    const int characters = document()->characterCount();
    if (characters - 1 > longest_) {
      isStale_ = true;
      return;
    }
    if (isStale_) {
      isStale_ = false;
      from = 0;
      charsRemoved = characters;
      charsAdded = characters;
    }
    QPlainTextDocumentLayout::documentChanged(from, charsRemoved, charsAdded);
  }

 private:
  int longest_;
  bool isStale_ = false;
};

}  // namespace

LineBox::LineBox(const QString& name, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setFrame(false);
}

QRect LineBox::TextRect() const {
  // The margin of QLineEdit on each side of its text.
  constexpr int kBesideText = 2;
  QStyleOptionFrame option;
  initStyleOption(&option);
  return style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(kBesideText, 0, -kBesideText, 0);
}

bool LineBox::IsElided() const { return !hasFocus() && fontMetrics().horizontalAdvance(text()) > TextRect().width(); }

bool LineBox::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && IsElided()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
  }
  return QLineEdit::event(event);
}

void LineBox::paintEvent(QPaintEvent* event) {
  if (!IsElided()) return QLineEdit::paintEvent(event);
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Text));
  const QRect place = TextRect();
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

TextBox::TextBox(const QString& name, int lines, int longest, QWidget* parent)
    : QPlainTextEdit(parent), longest_(longest) {
  setObjectName(name);
  auto* const text = new QTextDocument(this);
  text->setDocumentLayout(new LimitedLayout(text, longest));
  setDocument(text);
  setFrameShape(QFrame::NoFrame);
  setTabChangesFocus(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  document()->setDocumentMargin(kTextMargin);
  // Whole lines only, so that no line is clipped.
  const qreal line = QFontMetricsF(font()).lineSpacing();
  setFixedHeight(static_cast<int>(std::floor(line * lines)) + 2 * kTextMargin);
  connect(text, &QTextDocument::contentsChange, this,
          [this](int position, int /*removed*/, int added) { insertedUpTo_ = position + added; });
  connect(this, &QPlainTextEdit::textChanged, this, &TextBox::CutToLimit);
}

// Cut before the document gets it, so that the undo stack does not keep what was cut.
void TextBox::insertFromMimeData(const QMimeData* source) {
  const int free = longest_ - Length() + static_cast<int>(textCursor().selectedText().size());
  QString text = source->text();
  const bool fits = text.size() <= free;
  if (!fits) text.truncate(std::max(free, 0));
  textCursor().insertText(text);
  ensureCursorVisible();
  if (!fits) Q_EMIT inputRejected();
}

// Cuts the end of what was inserted; the text around it stays.
void TextBox::CutToLimit() {
  const int excess = Length() - longest_;
  if (excess <= 0) return;
  QTextCursor added(document());
  added.setPosition(std::clamp(insertedUpTo_, excess, Length()));
  added.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, excess);
  added.removeSelectedText();
  Q_EMIT inputRejected();
}

}  // namespace tonalith::editor
