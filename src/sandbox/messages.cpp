// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "sandbox/messages.h"

namespace tonalith::sandbox {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kEndless, TONALITH_MESSAGE("tonalith::sandbox", "reading it does not come to an end")},
    {kSystemRefused, TONALITH_MESSAGE("tonalith::sandbox", "the system refuses to read it: %1")},
    {kReaderGone, TONALITH_MESSAGE("tonalith::sandbox", "the reader is gone")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::sandbox
