// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The system's printing: the usual paper size, the printable area of a sheet, and a printer chosen by the user. No
// system printing library is loaded before the first call. Pages can be saved as PDF files without a printer. The
// dialogs run the event loop, so the calling window may be destroyed when they return. Any operation may throw
// core::Failure.

#pragma once

#include <memory>
#include <string>

#include "platform/printer.h"

namespace tonalith::platform {

enum class PaperSize { kA4, kLetter };
enum class PaperOrientation { kLandscape, kPortrait };

struct Paper {
  PaperSize size = PaperSize::kA4;
  PaperOrientation orientation = PaperOrientation::kLandscape;
  friend bool operator==(const Paper&, const Paper&) = default;
};

/// A sheet in its orientation, in points (1/72 inch), and its printable area.
struct Sheet {
  double width = 0;
  double height = 0;
  PrintRect printable;
};

struct PrintJob {
  /// The document's title, UTF-8.
  std::string title;
  Paper paper;
};

class PrintService {
 public:
  virtual ~PrintService() = default;

  /// Whether the system has any printer.
  [[nodiscard]] virtual bool HasPrinter() = 0;
  [[nodiscard]] virtual PaperSize UsualPaperSize() = 0;
  [[nodiscard]] virtual Sheet SheetOf(const Paper& paper) = 0;

  /// Shows the system's print dialog, which can also print to a PDF file. Returns null if the user cancels.
  virtual std::unique_ptr<Printer> AskForPrinter(const PrintJob& job) = 0;
  /// Asks for a file name; the page becomes a PDF file. Returns null if the user cancels.
  virtual std::unique_ptr<Printer> AskForPdfFile(const PrintJob& job) = 0;
};

}  // namespace tonalith::platform
