// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/messages.h"

namespace tonalith::help {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kFileMissing, TONALITH_MESSAGE("tonalith::help", "Cannot find help file:\n%1")},
    {kFileMissingTitle, TONALITH_MESSAGE("tonalith::help", "File Missing")},
    {kNetworkShare,
     TONALITH_MESSAGE("tonalith::help",
                      "Help files cannot be opened from a network share. Please move the app to a local drive.")},
    {kEngineFailed,
     TONALITH_MESSAGE("tonalith::help",
                      "The Help engine (hhctrl.ocx) failed to start. Ensure the file is unblocked and local.")},
    {kEngineFailedTitle, TONALITH_MESSAGE("tonalith::help", "API Error")},
    {kLinkRefused, TONALITH_MESSAGE("tonalith::help", "This link leads to something that the help does not open:\n%1")},
    {kLinkLeadsOut, TONALITH_MESSAGE("tonalith::help", "This link leads out of the help. Do you want to open it?\n%1")},
    {kAddressNotOpened, TONALITH_MESSAGE("tonalith::help", "The address could not be opened:\n%1")},
    {kNoPage, TONALITH_MESSAGE("tonalith::help", "The help file has no page to open at.")},
    {kFileNotRead, TONALITH_MESSAGE("tonalith::help", "The file '%1' cannot be read: %2.")},
    {kDamaged, TONALITH_MESSAGE("tonalith::help", "it is truncated or damaged")},
    {kNoFile, TONALITH_MESSAGE("tonalith::help", "it is no file")},
    {kTooLarge, TONALITH_MESSAGE("tonalith::help", "it is larger than a help file can be")},
    {kObjectNotRead, TONALITH_MESSAGE("tonalith::help", "%1 cannot be read")},
    {kNoHelpFile, TONALITH_MESSAGE("tonalith::help", "it is no help file")},
    {kDamagedList, TONALITH_MESSAGE("tonalith::help", "its list of objects is damaged")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::help
