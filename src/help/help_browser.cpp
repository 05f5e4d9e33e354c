// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_browser.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFontInfo>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QWheelEvent>
#include <cmath>

#include "help/help_search.h"
#include "help/help_style.h"
#include "help/picture_reader.h"

namespace tonalith::help {
namespace {

constexpr double kZoomStep = 1.1;
constexpr double kSmallestZoom = 0.6;
constexpr double kLargestZoom = 4.0;
constexpr double kReadingSize = 1.12;
constexpr int kSmallestLetters = 14;
constexpr int kMargin = 32;
constexpr std::size_t kMaxHighlights = 1000;
constexpr double kMostPicturePixels = 64e6;

HelpPage PageNotFound(const std::string& path) {
  HelpPage page;
  page.title = QCoreApplication::translate("tonalith::help::HelpBrowser", "Page not found").toStdString();
  page.html = "<h1>" + page.title + "</h1><p>" +
              QCoreApplication::translate("tonalith::help::HelpBrowser", "This help file has no page of this name:")
                  .toStdString() +
              "</p><p><code>" + EscapedForHtml(path) + "</code></p>";
  return page;
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
  setObjectName(QStringLiteral("HelpPage"));
  setAccessibleName(tr("Help page"));
  setOpenLinks(false);
  setFrameShape(QFrame::NoFrame);
  setUndoRedoEnabled(false);
  document()->setDocumentMargin(kMargin);
  setTextInteractionFlags(Qt::TextBrowserInteraction);
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
    const std::size_t number = url.path().toULongLong();
    if (url.scheme() == QLatin1String("link") && number < page_.links.size())
      Q_EMIT LinkChosen(std::string(page_.links[number]));
  });
}

void HelpBrowser::ShowPage(std::shared_ptr<const HelpBook> book, const HelpTarget& target) {
  const bool isSamePage = book == book_ && target.page == target_.page;
  book_ = std::move(book);
  target_ = target;
  highlightedWords_.clear();
  highlightedText_.clear();
  if (!isSamePage) {
    const HelpPage* const page = book_->Page(target.page);
    page_ = page != nullptr ? *page : PageNotFound(target.page);
    Render();
  }
  Highlight({});
  GoToAnchor();
}

int HelpBrowser::Scroll() const { return verticalScrollBar()->value(); }

void HelpBrowser::SetScroll(int pixels) { verticalScrollBar()->setValue(pixels); }

void HelpBrowser::ZoomBy(int steps) { SetZoom(zoom_ * std::pow(kZoomStep, steps)); }

void HelpBrowser::ResetZoom() { SetZoom(1); }

void HelpBrowser::SetZoom(double zoom) {
  // Snap to 1, so that the same number of steps in and out restores it.
  zoom = qBound(kSmallestZoom, std::abs(zoom - 1) < 0.01 ? 1.0 : zoom, kLargestZoom);
  if (qFuzzyCompare(zoom, zoom_)) return;
  zoom_ = zoom;
  RenderInPlace();
  Q_EMIT ZoomChanged();
}

double HelpBrowser::LetterHeight() const {
  return qMax(QFontInfo(font()).pixelSize() * kReadingSize, kSmallestLetters * 1.0) * zoom_;
}

int HelpBrowser::PictureColumn() const { return qMax(lineWrapColumnOrWidth() - 2 * kMargin, 40); }

void HelpBrowser::SetColumn() {
  setLineWrapMode(QTextEdit::FixedPixelWidth);
  setLineWrapColumnOrWidth(
      qMin(ColumnWidth(LetterHeight()) + 2 * kMargin, qMax(width() - verticalScrollBar()->sizeHint().width(), 120)));
}

void HelpBrowser::RenderInPlace() {
  if (book_ == nullptr) return;
  const double share = verticalScrollBar()->maximum() > 0 ? double(Scroll()) / verticalScrollBar()->maximum() : 0;
  Render();
  SetScroll(qRound(share * verticalScrollBar()->maximum()));
  if (!highlightedText_.isEmpty()) HighlightText(highlightedText_);
  if (!highlightedWords_.isEmpty()) Highlight({});
}

void HelpBrowser::Render() {
  if (isRendering_ || book_ == nullptr) return;
  const QScopedValueRollback rendering(isRendering_, true);
  ++serial_;
  SetColumn();
  renderedRatio_ = devicePixelRatioF();
  renderedColumn_ = PictureColumn();
  PreparePictures();
  QFont letters = font();
  letters.setPixelSize(qRound(LetterHeight()));
  document()->setDefaultFont(letters);
  document()->setDefaultStyleSheet(PageSheet());
  setHtml(PageHtml());
  document()->setDocumentMargin(kMargin);
  TightenPictureLines();
}

void HelpBrowser::TightenPictureLines() {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    bool hasPicture = false;
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      hasPicture = hasPicture || part.fragment().charFormat().isImageFormat();
    }
    if (!hasPicture) continue;
    QTextBlockFormat tight;
    tight.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
    QTextCursor(block).mergeBlockFormat(tight);
  }
}

QString HelpBrowser::PageSheet() const {
  std::string shapes;
  for (const std::string& sheet : page_.styleSheets) {
    if (const std::string* const bytes = book_->Attached(target_.page, sheet)) shapes += ShapesOf(*bytes);
  }
  return QString::fromStdString(shapes) + PageStyle(palette(), LetterHeight());
}

void HelpBrowser::PreparePictures() {
  pictures_.clear();
  // An untrusted page may show one picture many times, in any size, so the total of pixels is limited.
  double room = kMostPicturePixels;
  for (const HelpPicture& picture : page_.pictures) {
    const std::string* const bytes = room > 0 ? book_->Attached(target_.page, picture.source) : nullptr;
    Shown shown;
    if (bytes != nullptr) shown.image = ReadPicture(*bytes);
    if (!shown.image.isNull()) {
      room -= 1.0 * shown.image.width() * shown.image.height();
      shown.size = ShownSize(picture, shown.image.size(), zoom_, renderedColumn_);
      room -= 1.0 * shown.size.width() * shown.size.height() * renderedRatio_ * renderedRatio_;
      shown.image = room > 0 ? SharpAt(shown.image, shown.size, renderedRatio_) : QImage();
    }
    pictures_.push_back(shown);
  }
}

QString HelpBrowser::PageHtml() const {
  QString html = QString::fromStdString(page_.html);
  for (std::size_t i = 0; i < pictures_.size(); ++i) {
    const Shown& shown = pictures_[i];
    const QString before = QStringLiteral("<img src=\"picture:%1\">").arg(i);
    const QString after =
        shown.image.isNull()
            ? QStringLiteral("<i>[%1]</i>").arg(QString::fromStdString(EscapedForHtml(page_.pictures[i].description)))
            : QStringLiteral("<img src=\"picture:%1/%2\" width=\"%3\" height=\"%4\">")
                  .arg(serial_)
                  .arg(i)
                  .arg(shown.size.width())
                  .arg(shown.size.height());
    html.replace(before, after);
  }
  if (page_.isCut) {
    html += QStringLiteral("<hr><p><i>%1</i></p>")
                .arg(tr("This page is too long. The rest of it is not shown.").toHtmlEscaped());
  }
  return QStringLiteral("<html><body>%1</body></html>").arg(html);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const std::size_t number = name.path().section(QLatin1Char('/'), 1).toULongLong();
  const bool isPicture = type == QTextDocument::ImageResource && name.scheme() == QLatin1String("picture");
  return isPicture && number < pictures_.size() ? QVariant(pictures_[number].image) : QVariant();
}

void HelpBrowser::GoToAnchor() {
  moveCursor(QTextCursor::Start);
  SetScroll(0);
  if (!target_.anchor.empty()) scrollToAnchor(QString::fromStdString(target_.anchor));
}

void HelpBrowser::Highlight(const std::vector<QTextCursor>& matches) {
  std::vector<QTextCursor> all = matches;
  if (!highlightedWords_.isEmpty()) {
    const QRegularExpression pattern = AnyOf(highlightedWords_);
    for (QTextCursor at = document()->find(pattern, 0); !at.isNull() && all.size() < kMaxHighlights;
         at = document()->find(pattern, at)) {
      if (!at.hasSelection()) break;
      all.push_back(at);
    }
  }
  QList<QTextEdit::ExtraSelection> highlights;
  for (const QTextCursor& match : all) {
    QTextCharFormat format;
    format.setBackground(HitBackground(palette()));
    highlights.append({match, format});
  }
  setExtraSelections(highlights);
}

void HelpBrowser::HighlightWords(const QStringList& words) {
  highlightedWords_ = words;
  Highlight({});
  const auto highlights = extraSelections();
  if (highlights.isEmpty()) return;
  QTextCursor first = highlights.first().cursor;
  first.setPosition(first.selectionStart());
  BringIntoView(first);
}

int HelpBrowser::HighlightText(const QString& text) {
  highlightedText_ = text;
  highlightedWords_.clear();
  std::vector<QTextCursor> matches;
  if (!text.isEmpty()) {
    for (QTextCursor at = document()->find(text); !at.isNull() && matches.size() < kMaxHighlights;
         at = document()->find(text, at)) {
      matches.push_back(at);
    }
  }
  Highlight(matches);
  return static_cast<int>(matches.size());
}

void HelpBrowser::BringIntoView(const QTextCursor& match) {
  setTextCursor(match);
  const QRect line = cursorRect(match);
  const int edge = line.height();
  if (line.top() >= edge && line.bottom() <= viewport()->height() - 2 * edge) return;
  SetScroll(Scroll() + line.top() - viewport()->height() / 3);
}

bool HelpBrowser::FindAgain(const QString& text, bool backwards) {
  if (text.isEmpty()) return false;
  const QTextDocument::FindFlags flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  QTextCursor found = document()->find(text, textCursor(), flags);
  if (found.isNull()) {
    QTextCursor edge(document());
    if (backwards) edge.movePosition(QTextCursor::End);
    found = document()->find(text, edge, flags);
  }
  if (found.isNull()) return false;
  BringIntoView(found);
  return true;
}

bool HelpBrowser::FindFromHere(const QString& text) {
  QTextCursor here = textCursor();
  here.setPosition(here.selectionStart());
  setTextCursor(here);
  return FindAgain(text, false);
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    QTextBrowser::wheelEvent(event);
    return;
  }
  if (event->angleDelta().y() != 0) ZoomBy(event->angleDelta().y() > 0 ? 1 : -1);
  event->accept();
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (isRendering_) return;
  SetColumn();
  // Pictures are scaled to the column width.
  if (!page_.pictures.empty() && PictureColumn() != renderedColumn_) RenderInPlace();
}

void HelpBrowser::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::BackButton) {
    Q_EMIT BackRequested();
  } else if (event->button() == Qt::ForwardButton) {
    Q_EMIT ForwardRequested();
  } else {
    QTextBrowser::mouseReleaseEvent(event);
  }
}

void HelpBrowser::paintEvent(QPaintEvent* event) {
  QTextBrowser::paintEvent(event);
  // The window was moved to a screen with another scale factor: scale the pictures again after this paint event.
  if (book_ != nullptr && !qFuzzyCompare(renderedRatio_, devicePixelRatioF())) {
    renderedRatio_ = devicePixelRatioF();
    QMetaObject::invokeMethod(this, &HelpBrowser::RenderInPlace, Qt::QueuedConnection);
  }
}

void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) RenderInPlace();
}

void HelpBrowser::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  QAction* const copyAction = menu.addAction(tr("&Copy"), this, &QTextBrowser::copy);
  copyAction->setEnabled(textCursor().hasSelection());
  menu.addAction(tr("Select &All"), this, &QTextBrowser::selectAll);
  menu.exec(event->globalPos());
}

}  // namespace tonalith::help
