// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Where a picture goes on a page: as large as a share of the page allows, at a share of the space that is left over.
// Numbers in, numbers out, in whatever unit page and picture have; no Qt, no state.

#pragma once

#include <cstdint>

#include "platform/printer.h"

namespace tonalith::print {

struct Extent {
  double width = 0;
  double height = 0;
};

/// In percent. `size` is the most of the printable width and of the printable height that the picture takes; 0 of the
/// other two puts it at the top or left edge, 100 at the bottom or right edge.
struct PrintShares {
  std::int16_t size = 100;
  std::int16_t vertical = 50;
  std::int16_t horizontal = 50;
};

/// Throws failure 11 for a picture without width or, where its height limits it, without height.
platform::PrintPlace FitPicture(Extent picture, Extent printable, PrintShares shares);

}  // namespace tonalith::print
