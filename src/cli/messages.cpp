// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "cli/messages.h"

namespace tonalith::cli {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kUnknownEntry, TONALITH_MESSAGE("tonalith::cli", "No scale or chord is called \"%1\". The nearest names are %2.")},
    {kUnknownEntryOfNone,
     TONALITH_MESSAGE("tonalith::cli", "No scale or chord is called \"%1\", because there are none.")},
    {kUnknownInstrument,
     TONALITH_MESSAGE("tonalith::cli", "No instrument is called \"%1\". The nearest names are %2.")},
    {kUnknownType, TONALITH_MESSAGE("tonalith::cli", "No type is called \"%1\". The nearest names are %2.")},
    {kUnknownTypeOfNone, TONALITH_MESSAGE("tonalith::cli", "No type is called \"%1\", because there are none.")},
    {kNoKey, TONALITH_MESSAGE("tonalith::cli", "\"%1\" is not a key. %2.")},
    {kKeyHasOctave, TONALITH_MESSAGE("tonalith::cli", "\"%1\" is not a key, because it has an octave.")},
    {kOtherRoot, TONALITH_MESSAGE("tonalith::cli", "\"%1\" has a root, so it cannot be in the key %2.")},
    {kNoNotes, TONALITH_MESSAGE("tonalith::cli", "\"%1\" is not a list of notes. %2.")},
    {kNoFrets, TONALITH_MESSAGE("tonalith::cli", "\"%1\" is not a list of frets. %2.")},
    {kOtherStrings,
     TONALITH_MESSAGE("tonalith::cli", "The number of strings of \"%1\" is %2, but these are %3 frets.")},
    {kNoFretThere, TONALITH_MESSAGE("tonalith::cli", "String %1 of \"%2\" has no fret %3.")},
    {kAllMuted, TONALITH_MESSAGE("tonalith::cli", "All strings are muted.")},
    {kNoOctave, TONALITH_MESSAGE("tonalith::cli", "The steps of \"%1\" do not sum to an octave: %2")},
    {kPerStringInBoxes,
     TONALITH_MESSAGE("tonalith::cli", "Boxes do not have the same number of notes on each string.")},
    {kPackLeftOut, TONALITH_MESSAGE("tonalith::cli", "A pack is left out. %1")},
    {kNotWritten, TONALITH_MESSAGE("tonalith::cli", "The answer could not be written: %1.")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::cli
