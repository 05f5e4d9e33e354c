// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Pictures out of a help file, read with care: the common formats only, and none larger than a page has use for. Pure
// functions; any thread; what cannot be read is a null picture.

#pragma once

#include <QImage>
#include <QSize>
#include <string>

#include "help/help_page.h"

namespace tonalith::help {

/// The picture in these bytes (PNG, JPEG, GIF or BMP, up to 4,096 pixels each way).
[[nodiscard]] QImage ReadPicture(const std::string& bytes);

/// How large a page shows it, in pixels at a scale of 1: as the page asks, by the picture's own proportions where it
/// asks for one side only, by the picture's own size where it does not ask; times `zoom`, and never wider than
/// `column`.
[[nodiscard]] QSize ShownSize(const HelpPicture& picture, const QSize& own, double zoom, int column);

/// The picture with exactly the pixels that a screen of that ratio gives to `size`.
[[nodiscard]] QImage SharpAt(const QImage& picture, const QSize& size, double ratio);

}  // namespace tonalith::help
