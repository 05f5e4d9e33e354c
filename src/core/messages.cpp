// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/messages.h"

namespace tonalith::core {
namespace {

using enum MessageId;

constexpr auto kTexts = MakeCatalogue(std::to_array<CatalogueEntry<MessageId>>({
    {kOverflow, TONALITH_MESSAGE("tonalith::core", "Overflow")},
    {kSubscriptOutOfRange, TONALITH_MESSAGE("tonalith::core", "Subscript out of range")},
    {kTypeMismatch, TONALITH_MESSAGE("tonalith::core", "Type mismatch")},
    {kInvalidUseOfNull, TONALITH_MESSAGE("tonalith::core", "Invalid use of Null")},
    {kOutOfMemory, TONALITH_MESSAGE("tonalith::core", "Out of memory")},
    {kFileNotFound, TONALITH_MESSAGE("tonalith::core", "Could not find file '%1'.")},
    {kUnrecognizedFormat, TONALITH_MESSAGE("tonalith::core", "Unrecognized database format '%1'.")},
    {kNumberAndDescription, TONALITH_MESSAGE("tonalith::core", "%1: %2")},
    {kTrappedFailure, TONALITH_MESSAGE("tonalith::core", "%1 %2")},
}));

}  // namespace

std::span<const MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::core
