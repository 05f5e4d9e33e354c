// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Where a page of Qt's goes: to one of the system's printers, or into a PDF file. A PDF file appears under its name
// only when it is whole; what stood there before stays otherwise. Both discard a page that is not finished. Owned by
// the printer that paints on it; user-interface thread.

#pragma once

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QString>
#include <memory>

class QPrinter;

namespace tonalith::platform {

class PageOutput {
 public:
  virtual ~PageOutput() = default;

  virtual QPagedPaintDevice& Device() = 0;
  /// Sends the page, once its painting has ended. Throws core::Failure.
  virtual void Finish() = 0;
  /// Takes back what has been painted. Does not fail.
  virtual void Discard() = 0;
  [[nodiscard]] virtual QString Destination() const = 0;
};

/// The printer as the dialog has set it up.
std::unique_ptr<PageOutput> MakePrinterOutput(std::unique_ptr<QPrinter> printer);

/// A PDF file with a document title. Throws core::Failure when it cannot be written there.
std::unique_ptr<PageOutput> MakePdfOutput(const QString& fileName, const QString& title, const QPageLayout& layout);

}  // namespace tonalith::platform
