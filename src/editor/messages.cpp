// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/messages.h"

namespace tonalith::editor {
namespace {

using enum MessageId;

constexpr auto kTexts = core::MakeCatalogue(std::to_array<core::CatalogueEntry<MessageId>>({
    {kKeepQuestion, TONALITH_MESSAGE("tonalith::editor", "Are you sure you want to keep these changes?")},
    {kOverwriteQuestion,
     TONALITH_MESSAGE("tonalith::editor",
                      "This scale has been changed elsewhere since it was read here. Do you want to save your "
                      "changes over it?\n\nNo shows the scale as it is now. Ctrl+Z then brings your changes back.")},
    {kOverwriteTitle, TONALITH_MESSAGE("tonalith::editor", "Changed Elsewhere")},
    {kDeleteQuestion,
     TONALITH_MESSAGE("tonalith::editor",
                      "Are you sure you want to delete this record? You will not be able to undo the deletion!")},
    {kDeleteTitle, TONALITH_MESSAGE("tonalith::editor", "Confirm Deletion")},
    {kMoreNotesNeeded, TONALITH_MESSAGE("tonalith::editor", "A scale or chord requires more than one note.")},
    {kTwoSentences, TONALITH_MESSAGE("tonalith::editor", "%1. %2")},
    {kViewingHint,
     TONALITH_MESSAGE("tonalith::editor", "Modify (F2) to change this scale or add one, Escape to close.")},
    {kModifyHint,
     TONALITH_MESSAGE("tonalith::editor", "Choose notes and press Apply (Ctrl+Enter). Add begins a new scale.")},
    {kNotSavedYet, TONALITH_MESSAGE("tonalith::editor", "Not saved yet.")},
    {kPatternNotKept,
     TONALITH_MESSAGE("tonalith::editor", "Not kept. The scale still is %1. Modify (F2) brings your changes back.")},
    {kNotesTakenBack,
     TONALITH_MESSAGE("tonalith::editor", "Back to the saved notes. Ctrl+Z on a note brings yours back.")},
    {kNoNoteSelected, TONALITH_MESSAGE("tonalith::editor", "No note is selected.")},
    {kApplySaves, TONALITH_MESSAGE("tonalith::editor", "Apply saves %1: %2")},
    {kOneNote, TONALITH_MESSAGE("tonalith::editor", "One note is not a scale.")},
    {kSaved, TONALITH_MESSAGE("tonalith::editor", "Saved: %1")},
    {kNotKept, TONALITH_MESSAGE("tonalith::editor", "Not kept. Modify (F2) brings your changes back.")},
    {kNotSaved, TONALITH_MESSAGE("tonalith::editor", "Not saved. Modify (F2) brings your changes back.")},
    {kBroughtBack,
     TONALITH_MESSAGE("tonalith::editor", "Your changes are here again and not saved yet. Ctrl+Z takes them back.")},
    {kLibraryRead,
     TONALITH_MESSAGE("tonalith::editor", "The library was read again. Ctrl+Z brings your changes back.")},
    {kShowsOtherVersion,
     TONALITH_MESSAGE("tonalith::editor", "This is the scale as it is now. Ctrl+Z brings your changes back.")},
    {kFieldIsFull, TONALITH_MESSAGE("tonalith::editor", "%1 Only %2 characters fit; the rest was left out.")},
    {kPatternIsFull, TONALITH_MESSAGE("tonalith::editor", "%1 Only digits fit, %2 at most; the rest was left out.")},
    {kTextIsShortened,
     TONALITH_MESSAGE("tonalith::editor",
                      "The library holds more of this text than is shown. Saving replaces all of it.")},
}));

}  // namespace

std::span<const core::MessageText> CatalogueOf(MessageId /*id*/) { return kTexts; }

}  // namespace tonalith::editor
