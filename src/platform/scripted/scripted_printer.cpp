// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/scripted/scripted_printer.h"

#include <array>
#include <cstdio>
#include <utility>

#include "core/failure.h"

namespace tonalith::platform {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kDotsPerInch = 600;
constexpr double kBorder = 18;

std::string TextOf(const PrintPlace& place) {
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), "%g,%g %gx%g", place.left, place.top, place.width, place.height);
  return text.data();
}

}  // namespace

void PrintScript::Take(const std::string& step) {
  const auto what = during_.find(step);
  if (what != during_.end()) {
    const auto run = what->second;  // It may put another one in its place.
    run();
  }
  if (broken_.count(step) != 0) throw core::Failure(kPrinterError, step + " broke");
}

double ScriptedPrinter::InUnits(double twips) const {
  return mode_ == PrinterScaleMode::kTwips ? twips : twips * kDotsPerInch / kTwipsPerInch;
}

void ScriptedPrinter::SetScaleMode(PrinterScaleMode mode) {
  script_.Note("scale mode " + std::to_string(static_cast<int>(mode)));
  script_.Take("scale mode");
  mode_ = mode;
}

double ScriptedPrinter::ScaleWidth() {
  script_.Take("width");
  return InUnits(width_);
}

double ScriptedPrinter::ScaleHeight() {
  script_.Take("height");
  return InUnits(height_);
}

double ScriptedPrinter::DotsPerInch() {
  script_.Take("resolution");
  return kDotsPerInch;
}

void ScriptedPrinter::PaintPicture(const std::shared_ptr<const PrintablePicture>& picture, const PrintPlace& place) {
  script_.Note("paint at " + TextOf(place));
  script_.Take("paint");
  isPainted_ = true;
  script_.painted.push_back({picture, place});
}

void ScriptedPrinter::EndDoc() {
  script_.Note("end");
  script_.Take("end");
  if (!std::exchange(isPainted_, false)) return;
  isEnded_ = true;
  ++script_.pages;
}

bool ScriptedPrintService::HasPrinter() {
  script_.Take("has printer");
  return hasPrinter;
}

PaperSize ScriptedPrintService::UsualPaperSize() {
  script_.Take("usual paper");
  return usualPaperSize;
}

Sheet ScriptedPrintService::SheetOf(const Paper& paper) {
  script_.Take("sheet");
  Sheet sheet;
  sheet.width = paper.size == PaperSize::kA4 ? 595 : 612;
  sheet.height = paper.size == PaperSize::kA4 ? 842 : 792;
  if (paper.orientation == PaperOrientation::kLandscape) std::swap(sheet.width, sheet.height);
  sheet.printable = {kBorder, kBorder, sheet.width - 2 * kBorder, sheet.height - 2 * kBorder};
  return sheet;
}

std::unique_ptr<Printer> ScriptedPrintService::Answer(const std::string& step, const PrintJob& job) {
  script_.Note(step + " \"" + job.title + "\" " + (job.paper.size == PaperSize::kA4 ? "A4" : "Letter") +
               (job.paper.orientation == PaperOrientation::kLandscape ? " landscape" : " portrait"));
  script_.Take(step);
  if (userCancels) return nullptr;
  const Sheet sheet = SheetOf(job.paper);
  return std::make_unique<ScriptedPrinter>(script_, sheet.printable.width * kTwipsPerPoint,
                                           sheet.printable.height * kTwipsPerPoint);
}

std::unique_ptr<Printer> ScriptedPrintService::AskForPrinter(const PrintJob& job) { return Answer("ask printer", job); }

std::unique_ptr<Printer> ScriptedPrintService::AskForPdfFile(const PrintJob& job) { return Answer("ask pdf", job); }

}  // namespace tonalith::platform
