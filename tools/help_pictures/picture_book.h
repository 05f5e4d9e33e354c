// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The pictures of the help: the program's windows on a copy of the shipped database, each drawn into a PNG file. The
// copy lies in a folder that goes with the book, so nothing of the build is written to. Fails with std::runtime_error
// when a picture is asked for that the book does not know, when a window says something that it should not, or when a
// file cannot be written. User-interface thread.

#pragma once

#include <QImage>
#include <QTemporaryDir>
#include <filesystem>
#include <memory>
#include <string>

#include "isolated_window/isolated_window.h"

namespace tonalith::help_pictures {

class PictureBook {
 public:
  explicit PictureBook(const std::filesystem::path& database);
  ~PictureBook();

  /// Writes `<folder>/<name>.png` for each line of the table, name, tab, width on the page in pixels, at twice that
  /// width.
  void Write(const std::filesystem::path& table, const std::filesystem::path& folder);
  /// One picture by its name, at the size at which the windows draw themselves.
  [[nodiscard]] QImage Picture(const std::string& name);

 private:
  enum class EditorPart { kAll, kNoteButtons };

  [[nodiscard]] QImage Editor(EditorPart part);
  [[nodiscard]] QImage Search();
  [[nodiscard]] QImage PrintPreview();

  QTemporaryDir folder_;
  std::unique_ptr<isolated_window::IsolatedWindow> program_;
};

}  // namespace tonalith::help_pictures
