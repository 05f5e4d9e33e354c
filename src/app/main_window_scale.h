// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale of the main window's current record, as its views use it: notes, labels of the discs, step line. Staff and
// neck share one list of notes per refresh. Owned by the main window. Fails as the controls do.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/main_controls.h"
#include "core/current_scale.h"
#include "data/scale_database.h"

namespace tonalith::app {

class MainWindowScale : public views::ScaleInView, public core::CurrentScaleSource {
 public:
  /// Both must outlive this object.
  MainWindowScale(const MainControls& controls, data::ScaleDatabase& database) : c_(controls), database_(database) {}

  /// Draws the staff of the current record in the chosen key. Clears failures.
  void PaintStaff();

  [[nodiscard]] bool HasCurrentRecord() const override { return c_.Data1->HasRecord(); }
  std::optional<std::string> ScaleIntervals() override;
  void AppendStepWord(const std::string& words) override;
  [[nodiscard]] std::int32_t CurrentScaleId() const override;
  std::string GetScaleIntervalsByID(std::int32_t scaleId) override;

 private:
  void DrawStaff(std::string& scaleNotes);

  const MainControls& c_;
  data::ScaleDatabase& database_;
};

}  // namespace tonalith::app
