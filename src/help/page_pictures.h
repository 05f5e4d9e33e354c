// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The pictures of a help page, scaled for one zoom, column width and screen. The number of pixels is limited, because
// an untrusted page may show one picture many times, in any size. User-interface thread.

#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <string>
#include <vector>

#include "help/help_book.h"
#include "help/help_page.h"

class QUrl;

namespace tonalith::help {

class PagePictures {
 public:
  /// How pictures are shown: zoom factor, width of the column in pixels, device pixels per pixel.
  struct View {
    double zoom = 1;
    int column = 0;
    double ratio = 1;
  };

  /// Replaces the pictures by those of `page`, which is the object `path` of `book`.
  void Load(const HelpBook& book, const std::string& path, const HelpPage& page, const View& view);
  /// `html` with elements for the loaded pictures. A picture that cannot be read is replaced by its description.
  [[nodiscard]] QString InsertInto(QString html) const;
  /// The picture that an element of InsertInto names; nullptr for any other name.
  [[nodiscard]] const QImage* Find(const QUrl& name) const;

 private:
  struct Shown {
    QImage image;
    QSize size;
    std::string description;
  };

  std::vector<Shown> pictures_;
  /// In the names, so that the document does not use a cached picture of another zoom or page.
  int serial_ = 0;
};

}  // namespace tonalith::help
