// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/messages.h"

namespace tonalith::app {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kError, TONALITH_MESSAGE("tonalith::app", "Error: %1")},
    {kPathAccessError, TONALITH_MESSAGE("tonalith::app", "Path/File access error: %1 (%2)")},
    {kUnusableScale, TONALITH_MESSAGE("tonalith::app",
                                      "%1 is set to '%2', which is no scale that windows can be shown at. Tonalith "
                                      "has started as if it were not set.")},
    {kLoaded, TONALITH_MESSAGE("tonalith::app", "Loaded")},
    {kPlaying, TONALITH_MESSAGE("tonalith::app", "Playing: %1")},
    {kStopped, TONALITH_MESSAGE("tonalith::app", "Stopped")},
    {kStandby, TONALITH_MESSAGE("tonalith::app", "Standby")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::app
