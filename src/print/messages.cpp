// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/messages.h"

namespace tonalith::print {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kDivisionByZero, TONALITH_MESSAGE("tonalith::print", "Division by zero")},
    {kInvalidPicture, TONALITH_MESSAGE("tonalith::print", "Invalid picture")},
    {kBitmapFailed, TONALITH_MESSAGE("tonalith::print", "Bitmap creation failed \xE2\x80\x94 nothing to print.")},
    {kOnePage, TONALITH_MESSAGE("tonalith::print", "One page, %1.")},
    {kNoPrinter,
     TONALITH_MESSAGE("tonalith::print", "%1 No printer is set up here; the page can be saved as a PDF file.")},
    {kNothingPrinted, TONALITH_MESSAGE("tonalith::print", "Nothing was printed.")},
    {kSavedAs, TONALITH_MESSAGE("tonalith::print", "Saved as %1")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::print
