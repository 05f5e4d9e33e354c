// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/messages.h"

namespace tonalith::jet {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kTooLarge, TONALITH_MESSAGE("tonalith::jet", "it is larger than such a file can be")},
    {kNoWholePages,
     TONALITH_MESSAGE("tonalith::jet",
                      "it is truncated or damaged, because its length of %1 bytes is not a number of whole pages")},
    {kNoJetFile, TONALITH_MESSAGE("tonalith::jet", "it is no Jet file")},
    {kFileNotRead, TONALITH_MESSAGE("tonalith::jet", "The file '%1' cannot be read: %2.")},
    {kDamagedHeader, TONALITH_MESSAGE("tonalith::jet", "it is damaged in its header")},
    {kUnknownVersion,
     TONALITH_MESSAGE("tonalith::jet", "it is damaged in its header, or of a version that is not known here")},
    {kEncrypted, TONALITH_MESSAGE("tonalith::jet", "it is encrypted. Save it without encryption and try again")},
    {kPassword,
     TONALITH_MESSAGE("tonalith::jet", "it is protected with a password. Remove the password and try again")},
    {kDamagedCatalog, TONALITH_MESSAGE("tonalith::jet", "it is damaged: its table of contents cannot be read")},
    {kDamagedStream, TONALITH_MESSAGE("tonalith::jet", "it is damaged, and reading it broke off")},
    {kUnknownFieldType,
     TONALITH_MESSAGE("tonalith::jet", "the field '%1' of the table '%2' is of a kind that is not known here")},
    {kDamagedTable, TONALITH_MESSAGE("tonalith::jet", "it is damaged: the table '%1' cannot be read completely (%2)")},
    {kItsFields, TONALITH_MESSAGE("tonalith::jet", "its fields")},
    {kItsPages, TONALITH_MESSAGE("tonalith::jet", "its pages")},
    {kRowCount, TONALITH_MESSAGE("tonalith::jet", "%1 of %2 rows are there")},
    {kARow, TONALITH_MESSAGE("tonalith::jet", "a row")},
    {kTooManyRows, TONALITH_MESSAGE("tonalith::jet", "more rows than it says")},
    {kAField, TONALITH_MESSAGE("tonalith::jet", "a field")},
    {kANumber, TONALITH_MESSAGE("tonalith::jet", "a number")},
    {kLongContent, TONALITH_MESSAGE("tonalith::jet", "a long content")},
    {kBrokenText, TONALITH_MESSAGE("tonalith::jet", "a text in it is not valid Unicode")},
    {kUnknownCodePage, TONALITH_MESSAGE("tonalith::jet", "its texts are in the code page %1, which is not known here")},
    {kDateOutside, TONALITH_MESSAGE("tonalith::jet", "a date in it lies outside the calendar")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::jet
