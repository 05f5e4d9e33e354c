// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Printing a picture box, fitted to the page or as it is. Knows nothing of scales: any form, any picture box. Both
// procedures go on past failures and show what is pending in a message box at their end. Printer and message box are
// the caller's. User-interface thread.

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

/// Prints the image of `source` on one page, as large as `sizeShare` percent of the printable area allow, at
/// `verticalShare` and `horizontalShare` percent of what is left over. Until it returns the form has a child "picTemp".
void PrintPictureToSize(const PrintTools& tools, QWidget& form, const PictureBox& source, std::int16_t sizeShare,
                        std::int16_t verticalShare, std::int16_t horizontalShare);

/// Prints `view` as it is on the screen: captures it into `printPic`, whose image is printed at the page's top left
/// corner in its own size. A view that cannot be captured prints nothing and says so.
void CapturePrint(const PrintTools& tools, QWidget& view, PictureBox& printPic);

}  // namespace tonalith::print
