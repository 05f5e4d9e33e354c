// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/latest_scale.h"

#include <optional>
#include <utility>

namespace tonalith::core {

const Scale& LatestScale::Of(NoteNumber start, std::vector<std::int16_t> intervals) {
  if (scale_.empty() || start != start_ || intervals != intervals_) {
    scale_ = BuildScale(start, intervals);
    start_ = start;
    intervals_ = std::move(intervals);
  }
  return scale_;
}

const Scale& LatestScale::Of(NoteNumber start, const IntervalPattern& pattern, MsgBox& msgBox) {
  static const Scale none;
  std::optional<std::vector<std::int16_t>> intervals = ReportedIntervals(start, pattern, msgBox);
  return intervals ? Of(start, std::move(*intervals)) : none;
}

}  // namespace tonalith::core
