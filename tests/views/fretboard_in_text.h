// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The fretboard as text, and a scale for it. One line per string, the highest first, one word per position: `.` is a
// hidden note, `F#` a scale note with its name, `*C` the key note, `o` and `*o` the same without a name.

#pragma once

#include <optional>
#include <string>

#include "support/recording_msg_box.h"
#include "views/fretboard_view.h"

namespace tonalith::tests {

std::string InText(const views::FretboardView& view);

/// A current record with a pattern. Counts the reads of the pattern.
class OneScale : public views::ScaleInView {
 public:
  explicit OneScale(std::optional<std::string> scaleIntervals) : pattern(std::move(scaleIntervals)) {}

  [[nodiscard]] bool HasCurrentRecord() const override { return hasRecord; }
  std::optional<std::string> ScaleIntervals() override {
    ++reads;
    return pattern;
  }
  void AppendStepWord(const std::string& words) override { stepLine += words; }

  std::optional<std::string> pattern;
  bool hasRecord = true;
  std::string stepLine = "Scale Steps: ";
  int reads = 0;
};

/// Shows a scale with names, like a refresh of the window.
void Refresh(views::FretboardView& view, const std::string& key, views::ScaleInView& scale);

}  // namespace tonalith::tests
