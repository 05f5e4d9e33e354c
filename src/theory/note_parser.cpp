// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/note_parser.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "theory/accidental_text.h"

namespace tonalith::theory {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr int kLowestOctave = -1;
constexpr int kHighestOctave = 9;

constexpr std::array<std::pair<std::string_view, Letter>, 13> kSolfege = {{{"do", Letter::kC},
                                                                           {"ut", Letter::kC},
                                                                           {"re", Letter::kD},
                                                                           {"r\u00E9", Letter::kD},
                                                                           {"r\u00C9", Letter::kD},
                                                                           {"re\u0301", Letter::kD},
                                                                           {"mi", Letter::kE},
                                                                           {"fa", Letter::kF},
                                                                           {"sol", Letter::kG},
                                                                           {"so", Letter::kG},
                                                                           {"la", Letter::kA},
                                                                           {"si", Letter::kB},
                                                                           {"ti", Letter::kB}}};

/// Longer syllables first: the first that fits counts. "s" and "ses" only follow E and A.
constexpr std::array<std::pair<std::string_view, int>, 6> kSyllables = {
    {{"isis", 2}, {"is", 1}, {"eses", -2}, {"es", -1}, {"ses", -2}, {"s", -1}}};

constexpr std::array<std::pair<std::string_view, int>, 3> kWords = {{{"sharp", 1}, {"flat", -1}, {"natural", 0}}};

void SkipBlanks(std::string_view& text) { text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size())); }

std::optional<Letter> TakeLetter(std::string_view& text) {
  constexpr std::string_view kLetterOrder = "cdefgabh";
  if (text.empty()) return std::nullopt;
  const char lowered = text[0] >= 'A' && text[0] <= 'Z' ? static_cast<char>(text[0] - 'A' + 'a') : text[0];
  const std::size_t at = kLetterOrder.find(lowered);
  if (at == std::string_view::npos) return std::nullopt;
  text.remove_prefix(1);
  return lowered == 'h' ? Letter::kB : static_cast<Letter>(at);
}

/// The sum of the signs; nothing if there are too many or they contradict each other.
std::optional<int> TakeSigns(std::string_view& text) {
  int sum = 0;
  bool sharp = false;
  bool flat = false;
  while (const std::optional<int> sign = TakeAccidentalSign(text)) {
    sum += *sign;
    sharp = sharp || *sign > 0;
    flat = flat || *sign < 0;
    if (std::abs(sum) > 2) return std::nullopt;
  }
  return sharp && flat ? std::nullopt : std::optional(sum);
}

std::optional<int> TakeSyllable(std::string_view& text, Letter letter) {
  const bool vowel = letter == Letter::kE || letter == Letter::kA;
  for (const auto& [syllable, semitones] : kSyllables) {
    if (syllable.front() == 's' && !vowel) continue;
    if (TakeIgnoringCase(text, syllable)) return semitones;
  }
  return std::nullopt;
}

/// "sharp", "double flat", "-sharp", with blanks or a hyphen before each word.
std::optional<int> TakeWord(std::string_view& text) {
  std::string_view rest = text;
  const auto skip = [&rest] {
    SkipBlanks(rest);
    Take(rest, "-");
    SkipBlanks(rest);
  };
  skip();
  const bool twice = TakeIgnoringCase(rest, "double");
  if (twice) skip();
  for (const auto& [word, semitones] : kWords) {
    if (!TakeIgnoringCase(rest, word)) continue;
    text = rest;
    return twice ? 2 * semitones : semitones;
  }
  return std::nullopt;
}

NoteName Named(Letter letter, int alteration) { return {letter, static_cast<Accidental>(alteration)}; }

/// The ways to continue after a letter or do re mi.
class PrefixCollector {
 public:
  PrefixCollector(std::string_view text, std::vector<NotePrefix>& prefixes) : text_(text), prefixes_(prefixes) {}

  void Add(Letter letter, std::string_view rest, bool isBareBFlat, bool withSyllables) {
    std::string_view afterSigns = rest;
    const std::optional<int> signs = TakeSigns(afterSigns);
    if (signs) {
      const bool bare = afterSigns.size() == rest.size();
      Store(Named(letter, bare && isBareBFlat ? -1 : *signs), afterSigns);
    }
    std::string_view after = rest;
    if (withSyllables) {
      if (const std::optional<int> semitones = TakeSyllable(after, letter)) Store(Named(letter, *semitones), after);
    }
    after = rest;
    if (const std::optional<int> semitones = TakeWord(after)) Store(Named(letter, *semitones), after);
  }

 private:
  void Store(NoteName name, std::string_view rest) { prefixes_.push_back({name, text_.size() - rest.size()}); }

  std::string_view text_;
  std::vector<NotePrefix>& prefixes_;
};

/// Whether a note may end before this text: at its end, at a separator or at an octave.
bool IsBoundary(std::string_view rest) {
  return rest.empty() || std::string_view(" \t\r\n,;|-").find(rest[0]) != std::string_view::npos ||
         (rest[0] >= '0' && rest[0] <= '9');
}

ParseError WhyNoNote(std::string_view text, const std::vector<NotePrefix>& prefixes) {
  if (text.empty()) return {ParseReason::kEmpty, 0};
  std::string_view rest = text;
  if (prefixes.empty() && TakeLetter(rest)) {
    while (TakeAccidentalSign(rest)) {
    }
    if (text.size() - rest.size() > 1) return {ParseReason::kTooManyAccidentals, 1};
  }
  if (prefixes.empty()) return {ParseReason::kUnknownNote, 0};
  return {ParseReason::kTextAfterNote, std::ranges::max(prefixes, {}, &NotePrefix::bytes).bytes};
}

/// Reads an octave if one follows; an error if it is out of range.
Parsed<std::optional<int>> TakeOctave(std::string_view& rest) {
  std::string_view after = rest;
  const bool below = Take(after, "-");
  int octave = 0;
  std::size_t digits = 0;
  for (; digits < after.size() && after[digits] >= '0' && after[digits] <= '9'; ++digits) {
    octave = std::min(octave * 10 + (after[digits] - '0'), 100);
  }
  if (digits == 0) return std::optional<int>();
  if (below) octave = -octave;
  if (octave < kLowestOctave || octave > kHighestOctave) return {ParseReason::kOctaveOutOfRange, 0};
  rest = after.substr(digits);
  return std::optional(octave);
}

/// Reads a note and its octave from the beginning of `rest`; error positions count from there.
Parsed<TypedNote> TakeTypedNote(std::string_view& rest, MeaningOfB b) {
  std::vector<NotePrefix> prefixes = NotePrefixes(rest, b);
  const ParseError why = WhyNoNote(rest, prefixes);
  std::erase_if(prefixes, [&](const NotePrefix& prefix) { return !IsBoundary(rest.substr(prefix.bytes)); });
  if (prefixes.empty()) return why;
  const NotePrefix longest = std::ranges::max(prefixes, {}, &NotePrefix::bytes);
  std::string_view after = rest.substr(longest.bytes);
  const Parsed<std::optional<int>> octave = TakeOctave(after);
  if (!octave) return {octave.Error().reason, longest.bytes};
  if (!IsBoundary(after)) return {ParseReason::kTextAfterNote, rest.size() - after.size()};
  rest = after;
  return TypedNote{longest.name, *octave};
}

}  // namespace

MeaningOfB MeaningOfBIn(NoteLanguage language) {
  return language == NoteLanguage::kGerman ? MeaningOfB::kBFlat : MeaningOfB::kBNatural;
}

std::vector<NotePrefix> NotePrefixes(std::string_view text, MeaningOfB b) {
  std::vector<NotePrefix> prefixes;
  PrefixCollector collector(text, prefixes);
  std::string_view rest = text;
  if (const std::optional<Letter> letter = TakeLetter(rest)) {
    const bool isB = text[0] == 'B' || text[0] == 'b';
    collector.Add(*letter, rest, isB && b == MeaningOfB::kBFlat, true);
  }
  for (const auto& [syllable, letter] : kSolfege) {
    rest = text;
    if (TakeIgnoringCase(rest, syllable)) collector.Add(letter, rest, false, false);
  }
  return prefixes;
}

Parsed<TypedNote> ParseNote(std::string_view text, MeaningOfB b) {
  if (text.size() > kMostNoteBytes) return {ParseReason::kTooLong, kMostNoteBytes};
  std::string_view rest = text;
  SkipBlanks(rest);
  const std::size_t start = text.size() - rest.size();
  const Parsed<TypedNote> note = TakeTypedNote(rest, b);
  if (!note) return {note.Error().reason, start + note.Error().byte};
  SkipBlanks(rest);
  if (!rest.empty()) return {ParseReason::kTextAfterNote, text.size() - rest.size()};
  return note;
}

Parsed<std::vector<TypedNote>> ParseNotes(std::string_view text, MeaningOfB b) {
  if (text.size() > kMostNoteListBytes) return {ParseReason::kTooLong, kMostNoteListBytes};
  std::vector<TypedNote> notes;
  std::string_view rest = text;
  const auto skip = [&rest] { rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n,;|-"), rest.size())); };
  for (skip(); !rest.empty(); skip()) {
    const std::size_t start = text.size() - rest.size();
    if (notes.size() == kMostNotes) return {ParseReason::kTooMany, start};
    const Parsed<TypedNote> note = TakeTypedNote(rest, b);
    if (!note) return {note.Error().reason, start + note.Error().byte};
    notes.push_back(*note);
  }
  if (notes.empty()) return {ParseReason::kEmpty, 0};
  return notes;
}

}  // namespace tonalith::theory
