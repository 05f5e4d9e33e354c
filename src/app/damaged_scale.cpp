// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/damaged_scale.h"

#include "app/frm_tonalith.h"
#include "core/field_limits.h"
#include "core/scale_construction.h"
#include "core/scale_record.h"

namespace tonalith::app {

bool IsDamaged(const MainControls& controls) {
  return core::IsOverlongPattern(controls.Data1->FieldValue(core::scale_field::kIntervals).TextOr({}));
}

void ShowDamageOnStaff(const MainControls& controls) {
  controls.staff->ShowNotice(frmTonalith::tr("This scale is damaged."));
}

void ShowDamageInSteps(const MainControls& controls) {
  const QString why = frmTonalith::tr("This scale is damaged: its pattern has more than %1 steps.");
  controls.lblTranspose->setText(frmTonalith::tr("Scale Steps: ") + QLatin1String("  ") +
                                 why.arg(core::kMostPatternDigits));
}

}  // namespace tonalith::app
