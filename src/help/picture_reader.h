// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads and scales pictures of a help file. They are untrusted input: only common formats, with a size limit. An
// unreadable picture gives a null image.

#pragma once

#include <QImage>
#include <QSize>
#include <string>

#include "help/help_page.h"

namespace tonalith::help {

/// Decodes PNG, JPEG, GIF or BMP, up to 4,096 pixels in each direction.
[[nodiscard]] QImage ReadPicture(const std::string& bytes);

/// The size of the picture on the page, in pixels at a scale factor of 1: as the page requests, with the picture's
/// proportions if only one side is given, else the picture's own size; multiplied by `zoom`, at most `column` wide.
[[nodiscard]] QSize ShownSize(const HelpPicture& picture, const QSize& own, double zoom, int column);

/// The picture scaled to the physical pixels of `size` on a screen with that device pixel ratio.
[[nodiscard]] QImage SharpAt(const QImage& picture, const QSize& size, double ratio);

}  // namespace tonalith::help
