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

#include "help/help_style.h"

namespace tonalith::help {
namespace {

constexpr double kZoomStep = 1.1;
constexpr double kSmallestZoom = 0.6;
constexpr double kLargestZoom = 4.0;
constexpr double kReadingSize = 1.12;
constexpr int kSmallestLetters = 14;
constexpr int kMargin = 32;

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

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent), finder_(*this) {
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
  if (!isSamePage) {
    const HelpPage* const page = book_->Page(target.page);
    page_ = page != nullptr ? *page : PageNotFound(target.page);
    Render();
  }
  finder_.Clear();
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
  finder_.Refresh();
}

void HelpBrowser::Render() {
  if (isRendering_ || book_ == nullptr) return;
  const QScopedValueRollback rendering(isRendering_, true);
  SetColumn();
  renderedRatio_ = devicePixelRatioF();
  renderedColumn_ = PictureColumn();
  pictures_.Load(*book_, target_.page, page_, {zoom_, renderedColumn_, renderedRatio_});
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

QString HelpBrowser::PageHtml() const {
  QString html = pictures_.InsertInto(QString::fromStdString(page_.html));
  if (page_.isCut) {
    html += QStringLiteral("<hr><p><i>%1</i></p>")
                .arg(tr("This page is too long. The rest of it is not shown.").toHtmlEscaped());
  }
  return QStringLiteral("<html><body>%1</body></html>").arg(html);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QImage* const picture = type == QTextDocument::ImageResource ? pictures_.Find(name) : nullptr;
  return picture == nullptr ? QVariant() : QVariant(*picture);
}

void HelpBrowser::GoToAnchor() {
  moveCursor(QTextCursor::Start);
  SetScroll(0);
  if (!target_.anchor.empty()) scrollToAnchor(QString::fromStdString(target_.anchor));
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
