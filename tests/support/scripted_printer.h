// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Printing for tests: a printer and a print service that write down what is asked of them and fail at any step. One
// PrintScript belongs to them all. Steps are "scale mode", "width", "height", "resolution", "paint", "end" of the
// printer and "has printer", "usual paper", "sheet", "ask printer", "ask pdf" of the service. One thread only.

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
  /// Every step of that name throws failure 482 with the text "<step> broke".
  void Break(const std::string& step) { broken_.insert(step); }
  void Repair() { broken_.clear(); }
  /// Runs when the step is taken, before it fails or succeeds.
  void During(const std::string& step, std::function<void()> what) { during_[step] = std::move(what); }

  /// For the ports below.
  void Take(const std::string& step);
  void Note(const std::string& line) { record_ += line + "\n"; }
  [[nodiscard]] const std::string& Record() const { return record_; }
  void Forget() { record_.clear(); }

  /// What was painted, in its order.
  struct Painted {
    std::shared_ptr<const platform::PrintablePicture> picture;
    platform::PrintPlace place;
  };
  std::vector<Painted> painted;
  /// The pages that went out.
  int pages = 0;

 private:
  std::set<std::string> broken_;
  std::map<std::string, std::function<void()>> during_;
  std::string record_;
};

/// Its page is `width` by `height` twips, at 600 dots to the inch.
class ScriptedPrinter : public platform::Printer {
 public:
  ScriptedPrinter(PrintScript& script, double width, double height) : script_(script), width_(width), height_(height) {}

  void SetScaleMode(platform::PrinterScaleMode mode) override;
  [[nodiscard]] double ScaleWidth() override;
  [[nodiscard]] double ScaleHeight() override;
  [[nodiscard]] double DotsPerInch() override;
  void PaintPicture(const std::shared_ptr<const platform::PrintablePicture>& picture,
                    const platform::PrintPlace& place) override;
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
  /// The sheet with a border of 18 points all round.
  [[nodiscard]] platform::Sheet SheetOf(const platform::Paper& paper) override;
  std::unique_ptr<platform::Printer> AskForPrinter(const platform::PrintJob& job) override;
  std::unique_ptr<platform::Printer> AskForPdfFile(const platform::PrintJob& job) override;

  bool hasPrinter = true;
  platform::PaperSize usualPaperSize = platform::PaperSize::kA4;
  /// What the user does when asked.
  bool userCancels = false;

 private:
  std::unique_ptr<platform::Printer> Answer(const std::string& step, const platform::PrintJob& job);

  PrintScript& script_;
};

}  // namespace tonalith::tests
