// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale of the main window's current record, as its views use it: notes, labels of the discs, step line. Staff and
// neck share one list of notes per refresh. Owned by the main window. Fails as the controls do.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/main_controls.h"

namespace tonalith::app {

class MainWindowScale : public views::ScaleInView {
 public:
  /// The window owns the controls; both outlive this object.
  explicit MainWindowScale(const MainControls& controls) : c_(controls) {}

  /// Draws the staff of a scale in the chosen key; see StaffView::Draw.
  void DrawStaff(const std::vector<std::int16_t>& intervals, std::string& scaleNotes);

  [[nodiscard]] bool HasCurrentRecord() const override { return c_.Data1->HasRecord(); }
  std::optional<std::string> ScaleIntervals() override;
  void AppendStepWord(const std::string& words) override;

 private:
  const MainControls& c_;
};

}  // namespace tonalith::app
