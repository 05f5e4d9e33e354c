// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads a PDF file with poppler's programs, as somebody else's reader would: its text, its fonts, its title, its page
// as dots. Throws std::runtime_error when a program is not there or does not take the file.

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

  /// All text of the file, one blank between words.
  [[nodiscard]] std::string Text() const;
  [[nodiscard]] std::vector<PdfFont> Fonts() const;
  /// A line of pdfinfo, such as "Title" or "Pages".
  [[nodiscard]] std::string Info(const std::string& field) const;
  /// The first page, on white.
  [[nodiscard]] QImage Page(int dotsPerInch) const;

 private:
  std::string path_;
};

}  // namespace tonalith::tests
