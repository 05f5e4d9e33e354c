// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/messages.h"

namespace tonalith::platform {
namespace {

using enum PrintingMessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<PrintingMessageId>>({
    {kPageRefused, TONALITH_MESSAGE("tonalith::platform", "The printer %1 did not take the page.")},
    {kDocumentNotBegun, TONALITH_MESSAGE("tonalith::platform", "The document for %1 could not be begun.")},
    {kDocumentNotEnded, TONALITH_MESSAGE("tonalith::platform", "The document for %1 could not be ended.")},
    {kFileNotWritten, TONALITH_MESSAGE("tonalith::platform", "The file %1 could not be written: %2")},
    {kOtherFileThere, TONALITH_MESSAGE("tonalith::platform", "there is something else of that name")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(PrintingMessageId /*id*/) { return kTexts; }

}  // namespace tonalith::platform
