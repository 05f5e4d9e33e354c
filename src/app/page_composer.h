// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Draws what the window shows on its printPic, for white paper: dark inks whatever the theme, the neck in outline,
// every text in full. A text that is too long for its place on the screen is wrapped, and what stands below moves down;
// the page grows with it. The notice moves up into the room of the buttons, which are not printed. Works on the
// window's controls as they are when it is made, which outlive it. User-interface thread; the steps fail only where a
// control does.

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

  /// Gives printPic its scale mode and size and clears it.
  void BeginPage() const;
  void WriteStaff() const;
  void DrawStringsAndFrets() const;
  void WriteLabels() const;
  /// Copies every visible note image to its place, `between` running after each.
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
  void WriteBelow(const windows::FittingLabel& label, const QColor& ink);
  void WriteKey();
  void WriteFretNumbers();
  [[nodiscard]] double NeckTop() const;
  [[nodiscard]] double NoticeTop() const;
  /// The part of the client area that goes on paper, at a page that has not grown: as little empty room around the
  /// drawings and texts as possible, since the page is filled with it.
  [[nodiscard]] QRect View() const;
  [[nodiscard]] paint::SurfaceFont DescriptionFont() const;

  const MainControls& c_;
  QRect view_;
  std::vector<Line> lines_;
  /// How much lower than on the screen the next thing stands.
  double down_ = 0;
  double columnBottom_ = 0;
  double neckDown_ = 0;
};

/// What the document is called: the scale's name and its key.
std::string PageTitle(const MainControls& controls);

}  // namespace tonalith::app
