// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Draws the content of the main window on its printPic, for white paper: dark colours in any theme, the neck in
// outline, every text in full. A text that does not fit its label is wrapped, moves the content below it down and
// enlarges the page. The buttons are not printed; the version line moves up to their place. The constructor reads the
// state of the controls, which must outlive the object. A step throws core::Failure only if a control does.

#pragma once

#include <QColor>
#include <QRect>
#include <functional>
#include <string>
#include <vector>

#include "app/main_controls.h"

namespace tonalith::app {

class PageComposer {
 public:
  explicit PageComposer(const MainControls& controls);

  /// Sets scale mode and size of printPic and clears it.
  void BeginPage() const;
  void WriteStaff() const;
  void DrawStringsAndFrets() const;
  void WriteLabels() const;
  /// Copies the visible note images and calls `between` after each.
  void CopyNoteImages(const std::function<void()>& between) const;

 private:
  struct Line {
    double left = 0;
    double top = 0;
    paint::SurfaceFont font;
    QColor ink;
    std::string text;
  };

  void Write(const windows::FittingLabel& label, const paint::SurfaceFont& font, const QColor& ink);
  /// Writes the label's text in the font that the label uses on the screen.
  void WriteFitted(const windows::FittingLabel& label, const QColor& ink);
  void WriteKey();
  void WriteFretNumbers();
  [[nodiscard]] double NeckTop() const;
  [[nodiscard]] double VersionLineTop() const;
  /// The part of the client area that is printed if no text grows, with as little empty space around the content as
  /// possible, since it is scaled to the page.
  [[nodiscard]] QRect View() const;
  [[nodiscard]] paint::SurfaceFont DescriptionFont() const;

  const MainControls& c_;
  QRect view_;
  std::vector<Line> lines_;
  /// The distance in pixels by which the next text is lower than on the screen.
  double shift_ = 0;
  double columnBottom_ = 0;
  double neckShift_ = 0;
};

/// The document's title, UTF-8: the scale's name and key, or "Tonalith" for an empty name.
std::string PageTitle(const MainControls& controls);

}  // namespace tonalith::app
