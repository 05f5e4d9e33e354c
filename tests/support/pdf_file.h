// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads a PDF file with the programs of poppler, independently of Qt: text, fonts, title, and the page as an image.
// Throws std::runtime_error if a program is missing or refuses the file.

#pragma once

#include <QImage>
#include <string>
#include <vector>

namespace tonalith::tests {

struct PdfFont {
  std::string name;
  bool isEmbedded = false;
  bool isUnicode = false;
};

class PdfFile {
 public:
  explicit PdfFile(std::string path) : path_(std::move(path)) {}

  /// All text of the file, with one blank between words.
  [[nodiscard]] std::string Text() const;
  [[nodiscard]] std::vector<PdfFont> Fonts() const;
  /// A field of pdfinfo, such as "Title" or "Pages".
  [[nodiscard]] std::string Info(const std::string& field) const;
  /// The first page on a white background.
  [[nodiscard]] QImage Page(int dotsPerInch) const;

 private:
  std::string path_;
};

}  // namespace tonalith::tests
