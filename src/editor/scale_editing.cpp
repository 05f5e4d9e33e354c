// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/scale_editing.h"

#include <algorithm>
#include <vector>

#include "core/scale_construction.h"
#include "core/step_words.h"
#include "core/text.h"

namespace tonalith::editor {
namespace {

constexpr core::NoteNumber kFromC = 0;
constexpr int kOctave = 12;

class SilentMsgBox : public core::MsgBox {
 public:
  core::MsgBoxAnswer Show(const core::Message& /*text*/, core::MsgBoxStyle /*style*/,
                          const core::Message& /*title*/) override {
    return core::MsgBoxAnswer::kOk;
  }
};

NoteSelection SelectionOf(const core::Scale& scale) {
  NoteSelection selection;
  for (const core::ScaleNote& note : scale) selection.set(static_cast<std::size_t>(note.pitchClass));
  return selection;
}

}  // namespace

// Kept: see docs/behaviour.md, Patterns are read one digit at a time
std::string ScaleIntervalBuild(const NoteSelection& selected) {
  std::string pattern;
  std::optional<int> previous;
  for (int i = 0; i <= kOctave; ++i) {
    if (i < kOctave && !selected[static_cast<std::size_t>(i)]) continue;
    if (previous) pattern += std::to_string(i - *previous);
    previous = i;
  }
  return pattern;
}

// Kept: see docs/behaviour.md, Patterns are read one digit at a time
std::string CEditNotesToTones(std::string_view characters) {
  std::string words;
  for (const std::string_view character : core::Characters(characters)) words += core::CNotesToTones(character, 1);
  return words;
}

std::string StepWordsText(std::string_view pattern) {
  std::string text;
  for (const std::string_view character : core::Characters(pattern)) {
    const std::string word = CEditNotesToTones(character);
    if (!word.empty()) text += " " + word;
  }
  return text;
}

bool NoteExistsInScale(std::string_view strNoteVal, std::string_view pattern, core::MsgBox& msgBox) {
  core::Scale scale = core::ReportedScale(core::CNoteToNumber(strNoteVal), pattern, msgBox);
  scale.resize(std::min(scale.size(), std::size_t{kNoteCount}));
  return std::any_of(scale.begin(), scale.end(), [&](const auto& note) { return NameOf(note) == strNoteVal; });
}

// Kept: see docs/behaviour.md, Stored start notes change no view
// Kept: see docs/behaviour.md, ScaleStepType has no effect
NoteSelection PatternNotes::Of(std::string_view /*scaleType*/, const std::string& pattern) {
  if (pattern_ != pattern) {
    pattern_ = pattern;
    notes_.reset();
    notes_ = SelectionOf(core::ReportedScale(kFromC, pattern, msgBox_));
  }
  return notes_;
}

NoteSelection NotesOfTyped(std::string_view pattern) {
  SilentMsgBox silent;
  return SelectionOf(core::ReportedScale(kFromC, pattern, silent));
}

}  // namespace tonalith::editor
