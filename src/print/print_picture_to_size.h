// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Prints a picture box, fitted to the page or in its own size. Independent of scales: any form, any picture box. Both
// functions continue after failures and show the pending one in a message box at the end.

#pragma once

#include <cstdint>

#include "core/msg_box.h"
#include "platform/printer.h"
#include "print/picture_box.h"

namespace tonalith::print {

struct PrintTools {
  platform::Printer& printer;
  core::MsgBox& msgBox;
};

/// Prints the image of `source` on one page, at most `sizeShare` percent of the printable area, at `verticalShare` and
/// `horizontalShare` percent of the remaining space. Until it returns, the form has a child "picTemp".
void PrintPictureToSize(const PrintTools& tools, QWidget& form, const PictureBox& source, std::int16_t sizeShare,
                        std::int16_t verticalShare, std::int16_t horizontalShare);

/// Prints `view` as on the screen: captures it into `printPic` and prints that image at the top left corner of the page
/// in its own size. If the view cannot be captured, prints nothing and shows a message.
void CapturePrint(const PrintTools& tools, QWidget& view, PictureBox& printPic);

}  // namespace tonalith::print
