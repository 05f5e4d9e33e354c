// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scales of a data control for the search: clones of its record set, and its current record. The control must
// outlive it; the cursors are independent. Throws the failures of the control and its record set.

#pragma once

#include "controls/data_control.h"
#include "search/scale_search.h"

namespace tonalith::search {

class DataControlScales : public ScaleSource {
 public:
  explicit DataControlScales(controls::DataControl& control) : control_(control) {}

  [[nodiscard]] std::unique_ptr<ScaleCursor> Clone() override;
  [[nodiscard]] std::optional<data::Bookmark> Current() override;
  bool MakeCurrent(data::Bookmark bookmark) override;

 private:
  controls::DataControl& control_;
};

}  // namespace tonalith::search
