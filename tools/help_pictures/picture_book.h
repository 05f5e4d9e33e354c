// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The pictures of the help: screenshots of the program's windows on a temporary copy of the shipped database, written
// as PNG files. Throws std::runtime_error for an unknown picture, an unexpected message of a window, and a file that
// cannot be written.

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

  /// Writes `<folder>/<name>.png` for each line of the table (name, tab, width on the page in pixels) at twice that
  /// width.
  void Write(const std::filesystem::path& table, const std::filesystem::path& folder);
  /// One picture by its name, at the resolution of the windows.
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
