// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_window_scale.h"

#include "core/scale_record.h"
#include "views/staff_layout.h"

namespace tonalith::app {

void MainWindowScale::DrawStaff(const std::vector<std::int16_t>& intervals, std::string& scaleNotes) {
  const core::NoteNumber key = views::StaffKey(static_cast<std::int16_t>(c_.cmbTranspose->ListIndex()));
  c_.staff->Draw(Latest().Of(key, intervals), scaleNotes);
}

std::optional<std::string> MainWindowScale::ScaleIntervals() {
  const core::Value pattern = c_.Data1->FieldValue(core::scale_field::kIntervals);
  if (pattern.IsNull()) return std::nullopt;
  return pattern.AsText();
}

void MainWindowScale::AppendStepWord(const std::string& words) {
  c_.lblTranspose->setText(c_.lblTranspose->text() + QString::fromStdString(words));
}

}  // namespace tonalith::app
