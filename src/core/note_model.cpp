// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/note_model.h"

#include <limits>

#include "core/deferred_failure.h"

namespace tonalith::core {
namespace {

constexpr std::array<std::int16_t, 12> kNaturalIndex = {0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 5, 6};

template <std::size_t kSize>
std::string_view EntryAt(const std::array<std::string_view, kSize>& table, std::int16_t index) {
  if (index < 0 || index >= static_cast<std::int16_t>(kSize)) throw Failure::SubscriptOutOfRange();
  return table[static_cast<std::size_t>(index)];
}

/// The last entry that equals `name`, 0 if there is none.
template <std::size_t kSize>
std::int16_t LastIndexOf(const std::array<std::string_view, kSize>& table, std::string_view name) {
  std::int16_t found = 0;
  for (std::size_t i = 0; i < kSize; ++i) {
    if (table[i] == name) found = static_cast<std::int16_t>(i);
  }
  return found;
}

}  // namespace

// Kept: see docs/behaviour.md, Unknown note names read as C.
NoteNumber CNoteToNumber(std::string_view strNoteToConvert) { return LastIndexOf(kSharpNotes, strNoteToConvert); }

// Kept: see docs/behaviour.md, Two note lookups fail differently.
std::string CNumberToNote(std::int16_t intNumberToConvert, MsgBox& msgBox) {
  std::string name;
  DeferredFailure failure;
  failure.Try([&] { name = EntryAt(kSharpNotes, intNumberToConvert); });
  failure.ReportDescription(msgBox);
  return name;
}

// Kept: see docs/behaviour.md, Two note lookups fail differently.
std::string CNumberToScore(std::int16_t noteNumber) {
  if (noteNumber < 0 || noteNumber >= std::ssize(kSharpNotes)) return {};
  return std::string(kSharpNotes[static_cast<std::size_t>(noteNumber)]);
}

// Kept: see docs/behaviour.md, CNumberToScoreNote adds one.
std::string CNumberToScoreNote(std::int16_t intNumberToConvert, MsgBox& msgBox) {
  std::string name;
  DeferredFailure failure;
  failure.Try([&] {
    if (intNumberToConvert == std::numeric_limits<std::int16_t>::max()) throw Failure::Overflow();
    name = EntryAt(kStaffNotes, static_cast<std::int16_t>(intNumberToConvert + 1));
  });
  failure.ReportDescription(msgBox);
  return name;
}

// Kept: see docs/behaviour.md, CNoteToScoreNumber takes the last match.
std::int16_t CNoteToScoreNumber(std::string_view strNoteToConvert) {
  return LastIndexOf(kStaffNotes, strNoteToConvert);
}

std::int16_t NaturalIndex(std::int16_t pc) {
  if (pc < 0 || pc >= std::ssize(kNaturalIndex)) throw Failure::SubscriptOutOfRange();
  return kNaturalIndex[static_cast<std::size_t>(pc)];
}

}  // namespace tonalith::core
