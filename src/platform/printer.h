// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A printer as the program sees it: one page whose printable area is measured in the printer's own units, on which
// pictures are painted at an offset and in a size, and which goes out with the end of the document. Pictures are vector
// drawings; each printer paints them at its own resolution. A document that is never ended leaves no paper and no file.
// Any operation may throw core::Failure. Owned by whoever prints; user-interface thread.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

class QPainter;

namespace tonalith::platform {

/// A picture that can be painted at any resolution. Its extent is in pixels, 96 to an inch.
class PrintablePicture {
 public:
  virtual ~PrintablePicture() = default;

  [[nodiscard]] virtual double Width() const = 0;
  [[nodiscard]] virtual double Height() const = 0;
  /// Paints it with its top left corner at the painter's origin, one unit of the painter to a pixel.
  virtual void PaintOn(QPainter& painter) const = 0;
};

/// The failure of a printer that does not do what it is asked.
inline constexpr std::int32_t kPrinterError = 482;
inline constexpr double kTwipsPerInch = 1440;

/// What one unit of a printer is: 1/1440 inch, or a dot of its own resolution.
enum class PrinterScaleMode { kTwips = 1, kPixels = 3 };

/// A rectangle of the printable area, in the printer's units from its top left corner.
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

  /// The unit of everything below; twips at first.
  virtual void SetScaleMode(PrinterScaleMode mode) = 0;
  /// The printable width and height of the page.
  [[nodiscard]] virtual double ScaleWidth() = 0;
  [[nodiscard]] virtual double ScaleHeight() = 0;
  /// The resolution, the same in both directions.
  [[nodiscard]] virtual double DotsPerInch() = 0;

  virtual void PaintPicture(const std::shared_ptr<const PrintablePicture>& picture, const PrintRect& place) = 0;
  /// Ends the document and sends its page. Nothing is sent if nothing could be painted.
  virtual void EndDoc() = 0;
  /// Whether a page has been sent.
  [[nodiscard]] virtual bool IsEnded() const = 0;
  /// Where the page goes, for a person: a printer's name or a file's.
  [[nodiscard]] virtual std::string Destination() const = 0;
};

}  // namespace tonalith::platform
