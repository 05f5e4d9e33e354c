// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Outlines of single characters of a font file, read by FreeType. Qt's own way to them makes a font that can also set
// text, for which it asks fontconfig about every installed font: a hundred times the work, at each start. A file that
// is missing, damaged or no scalable font has no outlines; nothing throws. User-interface thread.

#pragma once

#include <QPainterPath>
#include <QString>
#include <memory>

namespace tonalith::paint {

class FontOutlines {
 public:
  explicit FontOutlines(const QString& fileName);
  ~FontOutlines();
  FontOutlines(const FontOutlines&) = delete;
  FontOutlines& operator=(const FontOutlines&) = delete;

  /// Empty when the file is no font.
  [[nodiscard]] QString Family() const;
  /// The unhinted outline with its origin on the baseline, y downward, at an em of `em` pixels. Empty when the font has
  /// not got the character.
  [[nodiscard]] QPainterPath Of(char32_t character, double em) const;

 private:
  struct Face;
  std::unique_ptr<Face> face_;
};

}  // namespace tonalith::paint
