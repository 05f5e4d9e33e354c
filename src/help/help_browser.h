// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One page of help, laid out: text in the window's own colours and a column that reads well, pictures sharp at every
// scale, links that can be walked by keyboard. Shows what it is given and loads nothing from anywhere else; where a
// link leads is its owner's business. Owned by its parent widget; user-interface thread; a picture that cannot be read
// is replaced by its description.

#pragma once

#include <QImage>
#include <QSize>
#include <QStringList>
#include <QTextBrowser>
#include <memory>
#include <string>
#include <vector>

#include "help/help_book.h"

namespace tonalith::help {

class HelpBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit HelpBrowser(QWidget* parent);

  /// Shows a page of `book`, which is kept as long as its page is shown: at the anchor, or from the top. A page that is
  /// not there gives one that says so.
  void ShowPage(std::shared_ptr<const HelpBook> book, const HelpTarget& place);
  /// Pixels from the top.
  [[nodiscard]] int Scroll() const;
  void SetScroll(int pixels);

  /// The size of the letters: 1 is the system's own.
  [[nodiscard]] double Zoom() const { return zoom_; }
  void ZoomBy(int steps);
  void ResetZoom();

  /// Marks every place where one of the words begins a word and goes to the first; no words, no marks.
  void HighlightWords(const QStringList& words);
  /// Marks `text` everywhere. Gives the number of places.
  int HighlightText(const QString& text);
  /// Selects the next or the previous place of `text`, from the end to the beginning again. False when there is none.
  bool FindAgain(const QString& text, bool backwards);
  /// Selects the first place at or behind the beginning of the selection.
  bool FindFromHere(const QString& text);

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
  struct Shown {
    QImage image;
    QSize size;
  };

  void Render();
  /// Lays the page out anew and stays where it was.
  void RenderInPlace();
  void SetZoom(double zoom);
  void SetColumn();
  void PreparePictures();
  /// The space between lines is for letters.
  void TightenPictureLines();
  [[nodiscard]] QString PageHtml() const;
  [[nodiscard]] QString PageSheet() const;
  [[nodiscard]] double LetterHeight() const;
  [[nodiscard]] int PictureColumn() const;
  void GoToAnchor();
  /// Selects what the cursor selects, with text above it and below it in sight.
  void BringIntoView(const QTextCursor& place);
  void Mark(const std::vector<QTextCursor>& places);

  std::shared_ptr<const HelpBook> book_;
  HelpTarget place_;
  HelpPage page_;
  std::vector<Shown> pictures_;
  QStringList highlightedWords_;
  QString highlightedText_;
  double zoom_ = 1;
  double renderedRatio_ = 0;
  int renderedColumn_ = 0;
  int serial_ = 0;
  bool isRendering_ = false;
};

}  // namespace tonalith::help
