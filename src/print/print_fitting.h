// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rectangle of a picture on a page: as large as a share of the page allows, at a share of the remaining space. Any
// unit; no Qt, no state.

#pragma once

#include <cstdint>

#include "platform/printer.h"

namespace tonalith::print {

struct Extent {
  double width = 0;
  double height = 0;
};

/// In percent. `size` is the maximum share of the printable width and height. For the other two, 0 is the top or left
/// edge, 100 the bottom or right edge.
struct PrintShares {
  std::int16_t size = 100;
  std::int16_t vertical = 50;
  std::int16_t horizontal = 50;
};

/// Throws failure 11 for a picture without width or, if its height is the limit, without height.
platform::PrintRect FitPicture(Extent picture, Extent printable, PrintShares shares);

}  // namespace tonalith::print
