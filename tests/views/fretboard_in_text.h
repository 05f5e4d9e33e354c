// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The fretboard drawn in characters, and a scale for it to show. One line a string, the highest first, one word a
// position: `.` a hidden note, `F#` a scale note with its name, `*C` the key note, `o` and `*o` the same without a
// name.

#pragma once

#include <optional>
#include <string>

#include "support/recording_msg_box.h"
#include "views/fretboard_view.h"

namespace tonalith::tests {

std::string InText(const views::FretboardView& view);

/// A current record with a pattern; it counts how often it is asked.
class OneScale : public views::ScaleInView {
 public:
  explicit OneScale(std::optional<std::string> scaleIntervals) : pattern(std::move(scaleIntervals)) {}

  [[nodiscard]] bool HasCurrentRecord() const override { return hasRecord; }
  std::optional<std::string> ScaleIntervals() override {
    ++asked;
    return pattern;
  }
  void AppendStepWord(const std::string& words) override { stepLine += words; }

  std::optional<std::string> pattern;
  bool hasRecord = true;
  std::string stepLine = "Scale Steps: ";
  int asked = 0;
};

/// Lights a scale as one refresh does, names included.
void Refresh(views::FretboardView& view, const std::string& key, views::ScaleInView& scale);

}  // namespace tonalith::tests
