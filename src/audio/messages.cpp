// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/messages.h"

namespace tonalith::audio {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kFileNotOpened, TONALITH_MESSAGE("tonalith::audio", "Cannot open file")},
    {kNotDescended, TONALITH_MESSAGE("tonalith::audio", "Cannot descend")},
    {kWrongFormat, TONALITH_MESSAGE("tonalith::audio", "Incorrect format")},
    {kNoFormat, TONALITH_MESSAGE("tonalith::audio", "Could not find fmt chunk")},
    {kShortFormat, TONALITH_MESSAGE("tonalith::audio", "Not enough data, only %1, wanted %2")},
    {kFormatNotRead, TONALITH_MESSAGE("tonalith::audio", "Not enough data read")},
    {kNotSought, TONALITH_MESSAGE("tonalith::audio", "Could not seek")},
    {kNoData, TONALITH_MESSAGE("tonalith::audio", "Could not descend into data")},
    {kDataNotRead, TONALITH_MESSAGE("tonalith::audio", "Could not read full buffer")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::audio
