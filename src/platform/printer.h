// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Prints one page. The printable area is measured in the printer's units; pictures are painted at an offset and in a
// size. Pictures are vector drawings, painted at the resolution of the printer. A document that is not ended is
// discarded. Any operation may throw core::Failure.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

class QPainter;

namespace tonalith::platform {

/// A picture that can be painted at any resolution. Its size is in pixels, 96 per inch.
class PrintablePicture {
 public:
  virtual ~PrintablePicture() = default;

  [[nodiscard]] virtual double Width() const = 0;
  [[nodiscard]] virtual double Height() const = 0;
  /// Paints the picture with its top left corner at the painter's origin, one painter unit per pixel.
  virtual void PaintOn(QPainter& painter) const = 0;
};

/// The number of a printer failure.
inline constexpr std::int32_t kPrinterError = 482;
inline constexpr double kTwipsPerInch = 1440;

/// The unit of a printer: 1/1440 inch, or a dot of its resolution.
enum class PrinterScaleMode { kTwips = 1, kPixels = 3 };

/// A rectangle in the printer's units, relative to the top left corner of the printable area.
struct PrintRect {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  friend bool operator==(const PrintRect&, const PrintRect&) = default;
};

class Printer {
 public:
  virtual ~Printer() = default;

  /// Sets the unit of the functions below; initially twips.
  virtual void SetScaleMode(PrinterScaleMode mode) = 0;
  /// The printable width and height of the page.
  [[nodiscard]] virtual double ScaleWidth() = 0;
  [[nodiscard]] virtual double ScaleHeight() = 0;
  /// The resolution, the same in both directions.
  [[nodiscard]] virtual double DotsPerInch() = 0;

  virtual void PaintPicture(const std::shared_ptr<const PrintablePicture>& picture, const PrintRect& place) = 0;
  /// Ends the document and sends its page. Sends nothing if nothing was painted.
  virtual void EndDoc() = 0;
  /// Whether a page has been sent.
  [[nodiscard]] virtual bool IsEnded() const = 0;
  /// The destination to show to the user: the name of a printer or of a file.
  [[nodiscard]] virtual std::string Destination() const = 0;
};

}  // namespace tonalith::platform
