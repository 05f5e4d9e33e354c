// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "support/scripted_printer.h"

#include <array>
#include <cstdio>
#include <utility>

#include "core/failure.h"
#include "support/text_message.h"

namespace tonalith::tests {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kDotsPerInch = 600;
constexpr double kBorder = 18;

std::string TextOf(const platform::PrintRect& place) {
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), "%g,%g %gx%g", place.left, place.top, place.width, place.height);
  return text.data();
}

}  // namespace

void PrintScript::Take(const std::string& step) {
  const auto what = during_.find(step);
  if (what != during_.end()) {
    const auto run = what->second;  // It may replace itself.
    run();
  }
  if (broken_.count(step) != 0) throw core::Failure(platform::kPrinterError, tests::TextMessage(step + " broke"));
}

double ScriptedPrinter::InUnits(double twips) const {
  return mode_ == platform::PrinterScaleMode::kTwips ? twips : twips * kDotsPerInch / platform::kTwipsPerInch;
}

void ScriptedPrinter::SetScaleMode(platform::PrinterScaleMode mode) {
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

void ScriptedPrinter::PaintPicture(const std::shared_ptr<const platform::PrintablePicture>& picture,
                                   const platform::PrintRect& place) {
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

platform::PaperSize ScriptedPrintService::UsualPaperSize() {
  script_.Take("usual paper");
  return usualPaperSize;
}

platform::Sheet ScriptedPrintService::SheetOf(const platform::Paper& paper) {
  script_.Take("sheet");
  platform::Sheet sheet;
  sheet.width = paper.size == platform::PaperSize::kA4 ? 595 : 612;
  sheet.height = paper.size == platform::PaperSize::kA4 ? 842 : 792;
  if (paper.orientation == platform::PaperOrientation::kLandscape) std::swap(sheet.width, sheet.height);
  sheet.printable = {kBorder, kBorder, sheet.width - 2 * kBorder, sheet.height - 2 * kBorder};
  return sheet;
}

std::unique_ptr<platform::Printer> ScriptedPrintService::Answer(const std::string& step,
                                                                const platform::PrintJob& job) {
  script_.Note(step + " \"" + job.title + "\" " + (job.paper.size == platform::PaperSize::kA4 ? "A4" : "Letter") +
               (job.paper.orientation == platform::PaperOrientation::kLandscape ? " landscape" : " portrait"));
  script_.Take(step);
  if (userCancels) return nullptr;
  const platform::Sheet sheet = SheetOf(job.paper);
  return std::make_unique<ScriptedPrinter>(script_, sheet.printable.width * kTwipsPerPoint,
                                           sheet.printable.height * kTwipsPerPoint);
}

std::unique_ptr<platform::Printer> ScriptedPrintService::AskForPrinter(const platform::PrintJob& job) {
  return Answer("ask printer", job);
}

std::unique_ptr<platform::Printer> ScriptedPrintService::AskForPdfFile(const platform::PrintJob& job) {
  return Answer("ask pdf", job);
}

}  // namespace tonalith::tests
