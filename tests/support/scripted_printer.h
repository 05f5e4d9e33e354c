// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fakes of the printer and the print service: record their calls and can fail at any step. They share one PrintScript.
// Steps of the printer: "scale mode", "width", "height", "resolution", "paint", "end"; of the service: "has printer",
// "usual paper", "sheet", "ask printer", "ask pdf". One thread.

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/print_service.h"

namespace tonalith::tests {

class PrintScript {
 public:
  /// All steps with that name throw failure 482 with the text "<step> broke".
  void Break(const std::string& step) { broken_.insert(step); }
  void Repair() { broken_.clear(); }
  /// Runs in the step, before it fails or succeeds.
  void During(const std::string& step, std::function<void()> what) { during_[step] = std::move(what); }

  /// For the fakes.
  void Take(const std::string& step);
  void Note(const std::string& line) { record_ += line + "\n"; }
  [[nodiscard]] const std::string& Record() const { return record_; }
  void Forget() { record_.clear(); }

  /// The painted pictures, in order.
  struct Painted {
    std::shared_ptr<const platform::PrintablePicture> picture;
    platform::PrintRect place;
  };
  std::vector<Painted> painted;
  /// The number of printed pages.
  int pages = 0;

 private:
  std::set<std::string> broken_;
  std::map<std::string, std::function<void()>> during_;
  std::string record_;
};

/// A page of `width` by `height` twips, at 600 dots per inch.
class ScriptedPrinter : public platform::Printer {
 public:
  ScriptedPrinter(PrintScript& script, double width, double height) : script_(script), width_(width), height_(height) {}

  void SetScaleMode(platform::PrinterScaleMode mode) override;
  [[nodiscard]] double ScaleWidth() override;
  [[nodiscard]] double ScaleHeight() override;
  [[nodiscard]] double DotsPerInch() override;
  void PaintPicture(const std::shared_ptr<const platform::PrintablePicture>& picture,
                    const platform::PrintRect& place) override;
  void EndDoc() override;
  [[nodiscard]] bool IsEnded() const override { return isEnded_; }
  [[nodiscard]] std::string Destination() const override { return "Scripted printer"; }

 private:
  [[nodiscard]] double InUnits(double twips) const;

  PrintScript& script_;
  double width_;
  double height_;
  platform::PrinterScaleMode mode_ = platform::PrinterScaleMode::kTwips;
  bool isPainted_ = false;
  bool isEnded_ = false;
};

class ScriptedPrintService : public platform::PrintService {
 public:
  explicit ScriptedPrintService(PrintScript& script) : script_(script) {}

  [[nodiscard]] bool HasPrinter() override;
  [[nodiscard]] platform::PaperSize UsualPaperSize() override;
  /// The sheet with a border of 18 points on each side.
  [[nodiscard]] platform::Sheet SheetOf(const platform::Paper& paper) override;
  std::unique_ptr<platform::Printer> AskForPrinter(const platform::PrintJob& job) override;
  std::unique_ptr<platform::Printer> AskForPdfFile(const platform::PrintJob& job) override;

  bool hasPrinter = true;
  platform::PaperSize usualPaperSize = platform::PaperSize::kA4;
  /// Whether the user cancels the dialogs.
  bool userCancels = false;

 private:
  std::unique_ptr<platform::Printer> Answer(const std::string& step, const platform::PrintJob& job);

  PrintScript& script_;
};

}  // namespace tonalith::tests
