// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The target of a page painted by Qt: a printer of the system or a PDF file. A PDF file replaces an existing file only
// when complete. Both discard an unfinished page.

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
  /// Sends the page after its painting has ended. Throws core::Failure.
  virtual void Finish() = 0;
  /// Discards the painted page. Does not fail.
  virtual void Discard() = 0;
  [[nodiscard]] virtual QString Destination() const = 0;
};

/// A printer as configured by the dialog.
std::unique_ptr<PageOutput> MakePrinterOutput(std::unique_ptr<QPrinter> printer);

/// A PDF file with a document title. Throws core::Failure if it cannot be written.
std::unique_ptr<PageOutput> MakePdfOutput(const QString& fileName, const QString& title, const QPageLayout& layout);

}  // namespace tonalith::platform
