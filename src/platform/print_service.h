// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The system's printing as a port: which paper is usual here, what of a sheet can be printed on, and a printer that the
// user has chosen. Nothing of the system's printing is loaded before one of these is asked for the first time. Without
// a printer, pages can still become PDF files. Asking lets events run, and the asking window may be gone afterwards.
// Owned by main and outlives its callers; user-interface thread; any operation may throw core::Failure.

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

/// A sheet as it lies, in points (72 to an inch), and the part of it that can be printed on.
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

  /// Whether the system knows a printer at all.
  [[nodiscard]] virtual bool HasPrinter() = 0;
  [[nodiscard]] virtual PaperSize UsualPaperSize() = 0;
  [[nodiscard]] virtual Sheet SheetOf(const Paper& paper) = 0;

  /// Asks for a printer with the system's dialog, which can also print to a PDF file. Null when the user cancels.
  virtual std::unique_ptr<Printer> AskForPrinter(const PrintJob& job) = 0;
  /// Asks for a file name alone; the page becomes a PDF file. Null when the user cancels.
  virtual std::unique_ptr<Printer> AskForPdfFile(const PrintJob& job) = 0;
};

}  // namespace tonalith::platform
