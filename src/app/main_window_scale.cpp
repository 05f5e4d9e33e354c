// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_window_scale.h"

#include <QLineEdit>

#include "app/damaged_scale.h"
#include "app/frm_tonalith.h"
#include "core/deferred_failure.h"
#include "core/scale_record.h"
#include "views/staff_layout.h"

namespace tonalith::app {

void MainWindowScale::DrawStaff(std::string& scaleNotes) {
  // Not the text of Label1, which shortens a long name.
  std::string name = c_.Data1->FieldValue(core::scale_field::kName).TextOr({});
  // Kept: see docs/behaviour.md, A record without a name has the Major staff
  if (name.empty()) name = "Major";
  // Kept: see docs/behaviour.md, Records of one name share a staff
  const auto intervals = database_.GetScaleIntervalsFromDB(name);
  const core::NoteNumber key = views::StaffKey(static_cast<std::int16_t>(c_.cmbTranspose->ListIndex()));
  c_.staff->Draw(Latest().Of(key, intervals), scaleNotes);
}

void MainWindowScale::PaintStaff() {
  c_.staff->Clear();
  const bool isDamaged = IsDamaged(c_);
  if (isDamaged) ShowDamageOnStaff(c_);
  // The caption of the label if the staff shows no scale.
  std::string notes = frmTonalith::tr("Scale Notes").toStdString();
  if (c_.Data1->Recordset() != nullptr && !isDamaged) {
    core::DeferredFailure failure;
    failure.Try([&] { DrawStaff(notes); });
    // After a failure the staff shows what was drawn before it; the fretboard reports the failure.
    failure.Clear();
  }
  c_.lblScaleNotes->setText(QString::fromStdString(notes));
}

std::optional<std::string> MainWindowScale::ScaleIntervals() {
  const core::Value pattern = c_.Data1->FieldValue(core::scale_field::kIntervals);
  if (pattern.IsNull()) return std::nullopt;
  return pattern.AsText();
}

void MainWindowScale::AppendStepWord(const std::string& words) {
  c_.lblTranspose->setText(c_.lblTranspose->text() + QString::fromStdString(words));
}

std::int32_t MainWindowScale::CurrentScaleId() const {
  bool isNumber = false;
  const int scaleId = c_.txtScaleID->text().toInt(&isNumber);
  if (!isNumber) throw core::Failure::TypeMismatch();
  return scaleId;
}

std::string MainWindowScale::GetScaleIntervalsByID(std::int32_t scaleId) {
  return database_.GetScaleIntervalsByID(scaleId);
}

}  // namespace tonalith::app
