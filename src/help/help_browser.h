// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Shows one page of help: text in the window's colours in a column of readable width, pictures sharp at every scale
// factor, links in the tab order. Loads nothing except from the book; the owner handles links. A picture that cannot be
// read is replaced by its description.

#pragma once

#include <QTextBrowser>
#include <memory>
#include <string>

#include "help/help_book.h"
#include "help/page_pictures.h"
#include "help/text_finder.h"

namespace tonalith::help {

class HelpBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit HelpBrowser(QWidget* parent);

  /// Shows a page of `book`, which is shared while its page is shown: at the anchor, or from the top. If the page does
  /// not exist, shows a page with a message.
  void ShowPage(std::shared_ptr<const HelpBook> book, const HelpTarget& target);
  /// Pixels from the top.
  [[nodiscard]] int Scroll() const;
  void SetScroll(int pixels);

  /// The font size as a factor: 1 is the system's size.
  [[nodiscard]] double Zoom() const { return zoom_; }
  void ZoomBy(int steps);
  void ResetZoom();

  [[nodiscard]] TextFinder& Finder() { return finder_; }

 Q_SIGNALS:
  void LinkChosen(const std::string& link);
  void ZoomChanged();
  void BackRequested();
  void ForwardRequested();

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void wheelEvent(QWheelEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void Render();
  /// Renders the page again and keeps the scroll position.
  void RenderInPlace();
  void SetZoom(double zoom);
  void SetColumn();
  /// Removes the extra line spacing of lines that contain pictures.
  void TightenPictureLines();
  [[nodiscard]] QString PageHtml() const;
  [[nodiscard]] QString PageSheet() const;
  [[nodiscard]] double LetterHeight() const;
  [[nodiscard]] int PictureColumn() const;
  void GoToAnchor();

  std::shared_ptr<const HelpBook> book_;
  HelpTarget target_;
  HelpPage page_;
  PagePictures pictures_;
  TextFinder finder_;
  double zoom_ = 1;
  double renderedRatio_ = 0;
  int renderedColumn_ = 0;
  bool isRendering_ = false;
};

}  // namespace tonalith::help
