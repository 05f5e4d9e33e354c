// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Builds a scale, and returns it again while start and intervals stay the same, so that the views of one refresh share
// one list.

#pragma once

#include <cstdint>
#include <vector>

#include "core/scale_construction.h"

namespace tonalith::core {

class LatestScale {
 public:
  /// Valid until the next call. Throws the failures of BuildScale.
  const Scale& Of(NoteNumber start, std::vector<std::int16_t> intervals);
  /// The same for a pattern. No notes, after a report, for a pattern that ScaleArray reports.
  const Scale& Of(NoteNumber start, const IntervalPattern& pattern, MsgBox& msgBox);

 private:
  NoteNumber start_ = 0;
  std::vector<std::int16_t> intervals_;
  /// Empty before the first call.
  Scale scale_;
};

}  // namespace tonalith::core
