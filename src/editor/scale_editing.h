// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The arithmetic of the editor: from selected notes to an interval pattern, and from a pattern to step words and notes.
// Scales are built from C, so note i of the twelve is note number i. The message box reports a pattern that cannot be
// built.

#pragma once

#include <bitset>
#include <optional>
#include <string>
#include <string_view>

#include "core/msg_box.h"
#include "core/note_model.h"
#include "paint/colours.h"

namespace tonalith::editor {

inline constexpr int kNoteCount = 12;

/// Bit i is note number i.
using NoteSelection = std::bitset<kNoteCount>;

/// The colours of a note button. They are its state.
/// Kept: see docs/behaviour.md, Colours are the state of a note button
struct NoteColours {
  paint::Bgr fore;
  paint::Bgr back;
  friend constexpr bool operator==(const NoteColours&, const NoteColours&) = default;
};
inline constexpr NoteColours kSelectedColours{{0x000000}, {0xCCFFCC}};
inline constexpr NoteColours kUnselectedColours{{0xC4C4C4}, {0xFFFFFF}};

constexpr bool IsSelected(const NoteColours& colours) { return colours.fore == kSelectedColours.fore; }
constexpr bool IsHiddenInView(const NoteColours& colours) { return colours.back == kUnselectedColours.back; }
constexpr NoteColours Toggled(const NoteColours& colours) {
  return IsSelected(colours) ? kUnselectedColours : kSelectedColours;
}

/// The distances from each selected note to the next, the last one to the octave, as decimal numbers without a
/// separator: C D E F G A B gives 2212221, a lone C gives 12. Nothing selected gives an empty text.
std::string ScaleIntervalBuild(const NoteSelection& selected);

/// The step words of all characters of a pattern, joined. Characters that are no digits are skipped.
std::string CEditNotesToTones(std::string_view characters);

/// The step words of a pattern, each after a blank.
std::string StepWordsText(std::string_view pattern);

/// Whether a note is among the first twelve notes of the pattern, built on that note.
/// Kept: see docs/behaviour.md, Functions without callers
bool NoteExistsInScale(std::string_view strNoteVal, std::string_view pattern, core::MsgBox& msgBox);

/// The notes of a pattern built from C. Caches the latest result: the form queries the same pattern at each key stroke,
/// and a pattern that cannot be built is reported only the first time.
class PatternNotes {
 public:
  explicit PatternNotes(core::MsgBox& msgBox) : msgBox_(msgBox) {}

  NoteSelection Of(std::string_view scaleType, const std::string& pattern);

 private:
  core::MsgBox& msgBox_;
  std::optional<std::string> pattern_;
  NoteSelection notes_;
};

/// The same without a report; no notes for a pattern that cannot be built.
NoteSelection NotesOfTyped(std::string_view pattern);

}  // namespace tonalith::editor
