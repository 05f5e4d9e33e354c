// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/record_binding.h"

#include <QLineEdit>
#include <cstddef>

#include "core/field_limits.h"
#include "core/value.h"
#include "windows/shown_text.h"

namespace tonalith::app {
namespace {

/// The record source until the start sets another one: the text of the stored query.
constexpr const char* kDesignRecordSource =
    "SELECT DISTINCTROW Scales.ScaleID, Scales.ScaleName, Scales.ScaleTypeID, Scales.ScaleDescription, "
    "Scales.StartNote, Scales.ScaleIntervals, Scales.Chord, Scales.Sort, ScaleTypes.ScaleTypeNo, "
    "ScaleTypes.ScaleTypeName\r\n"
    "FROM ScaleTypes INNER JOIN Scales ON ScaleTypes.ScaleTypeID = Scales.ScaleTypeID;\r\n";

}  // namespace

void BindRecordFields(const MainControls& controls) {
  controls::DataControl& data = *controls.Data1;
  const auto bind = [&data](const char* field, auto* control, std::size_t longest) {
    data.Bind(field, [control, longest](const core::Value& value) {
      control->setText(windows::ShownText(value.TextOr({}), longest));
    });
  };
  // Older libraries do not limit the length of names. The label shows those completely that fit on a printed page.
  constexpr std::size_t kLongestShown = 4 * core::kLongestName;
  bind("ScaleName", controls.Label1, kLongestShown);
  bind("ScaleDescription", controls.lblScaleDescription, core::kLongestDescription);
  bind("ScaleTypeName", controls.lblScaleType, kLongestShown);
  bind("ScaleID", controls.txtScaleID, kLongestShown);
  bind("ScaleIntervals", controls.txtInterval, core::kLongestPattern);
  data.SetConnectionString(
      "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=TonalithDB97.mdb;"
      "Mode=ReadWrite|Share Deny None;Persist Security Info=False");
  data.SetRecordSource(kDesignRecordSource);
}

}  // namespace tonalith::app
