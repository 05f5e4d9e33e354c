// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Note names in all languages, written and read.

#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <vector>

#include "theory/note_parser.h"
#include "theory/note_style.h"

namespace tonalith::theory {
namespace {

using ::testing::ElementsAre;

std::vector<NoteName> AllNames() {
  std::vector<NoteName> names;
  for (int letter = 0; letter < kLetters; ++letter) {
    for (int alteration = -2; alteration <= 2; ++alteration) {
      names.push_back({static_cast<Letter>(letter), static_cast<Accidental>(alteration)});
    }
  }
  return names;
}

/// The note in English ASCII with its octave, or the error.
std::string Read(std::string_view text, MeaningOfB b = MeaningOfB::kBNatural) {
  const Parsed<TypedNote> note = ParseNote(text, b);
  if (!note) return Describe(note.Error(), text);
  return Write(note->name) + (note->octave ? std::to_string(*note->octave) : "");
}

std::string ReadList(std::string_view text) {
  const Parsed<std::vector<TypedNote>> notes = ParseNotes(text);
  if (!notes) return Describe(notes.Error(), text);
  std::string list;
  for (const TypedNote& note : *notes) list += (list.empty() ? "" : " ") + Write(note.name);
  return list;
}

constexpr NoteName kBFlat{Letter::kB, Accidental::kFlat};
constexpr NoteName kBDoubleFlat{Letter::kB, Accidental::kDoubleFlat};
constexpr NoteName kFSharp{Letter::kF, Accidental::kSharp};

TEST(NoteStyles, WriteTheNamesOfTheirLanguage) {
  EXPECT_EQ(Write(kFSharp), "F#");
  EXPECT_EQ(Write(kFSharp, {NoteLanguage::kEnglish, AccidentalSigns::kUnicode}), "F\u266F");
  EXPECT_EQ(Write(kFSharp, {NoteLanguage::kGerman, AccidentalSigns::kSyllables}), "Fis");
  EXPECT_EQ(Write(kFSharp, {NoteLanguage::kSolfege}), "Fa#");
  EXPECT_EQ(Write(NoteName{Letter::kD}, {NoteLanguage::kSolfege}), "R\u00E9");
  EXPECT_EQ(Write(NoteName{Letter::kD}, {NoteLanguage::kSolfegeAscii}), "Re");
  EXPECT_EQ(Write(SpelledNote{kFSharp, 3}), "F#3");
}

TEST(NoteStyles, GermanHasTwoNamesForBFlat) {
  EXPECT_EQ(Write(NoteName{Letter::kB}, {NoteLanguage::kGerman}), "H");
  EXPECT_EQ(Write(NoteName{Letter::kB}, {NoteLanguage::kGermanBb}), "H");
  EXPECT_EQ(Write(kBFlat, {NoteLanguage::kGerman}), "B");
  EXPECT_EQ(Write(kBFlat, {NoteLanguage::kGermanBb}), "Bb");
  EXPECT_EQ(Write(kBDoubleFlat, {NoteLanguage::kGerman, AccidentalSigns::kSyllables}), "Heses");
  EXPECT_EQ(Write(kBDoubleFlat, {NoteLanguage::kGerman}), "Hbb");
  EXPECT_EQ(Write(NoteName{Letter::kE, Accidental::kFlat}, {NoteLanguage::kGerman, AccidentalSigns::kSyllables}), "Es");
  EXPECT_EQ(Write(NoteName{Letter::kA, Accidental::kDoubleFlat}, {NoteLanguage::kGerman, AccidentalSigns::kSyllables}),
            "Ases");
}

TEST(NoteStyles, EveryNameIsReadAsItIsWritten) {
  for (const NoteLanguage language : {NoteLanguage::kEnglish, NoteLanguage::kGerman, NoteLanguage::kGermanBb,
                                      NoteLanguage::kSolfege, NoteLanguage::kSolfegeAscii}) {
    for (const AccidentalSigns signs :
         {AccidentalSigns::kAscii, AccidentalSigns::kUnicode, AccidentalSigns::kSyllables}) {
      for (const NoteName name : AllNames()) {
        const std::string text = Write(name, {language, signs});
        const Parsed<TypedNote> note = ParseNote(text, MeaningOfBIn(language));
        ASSERT_TRUE(note) << text;
        EXPECT_EQ(note->name, name) << text;
      }
    }
  }
}

TEST(NoteParser, ReadsAllStyles) {
  const std::vector<std::tuple<std::string, std::string>> cases = {{"c", "C"},
                                                                   {"bb", "Bb"},
                                                                   {"bbb", "Bbb"},
                                                                   {"F#", "F#"},
                                                                   {"Fx", "F##"},
                                                                   {"H", "B"},
                                                                   {"hb", "Bb"},
                                                                   {"His", "B#"},
                                                                   {"as", "Ab"},
                                                                   {"Es", "Eb"},
                                                                   {"des", "Db"},
                                                                   {"FISIS", "F##"},
                                                                   {"Heses", "Bbb"},
                                                                   {"do", "C"},
                                                                   {"R\u00E9", "D"},
                                                                   {"R\u00C9b", "Db"},
                                                                   {"mib", "Eb"},
                                                                   {"Sol#", "G#"},
                                                                   {"si", "B"},
                                                                   {"A\u266D", "Ab"},
                                                                   {"G\u266F", "G#"},
                                                                   {"D\U0001D12B", "Dbb"},
                                                                   {"C\U0001D12A", "C##"},
                                                                   {"B flat", "Bb"},
                                                                   {"c-sharp", "C#"},
                                                                   {"F double sharp", "F##"},
                                                                   {"Eflat", "Eb"},
                                                                   {"G natural", "G"},
                                                                   {" A ", "A"},
                                                                   {"re\u0301", "D"}};
  for (const auto& [text, name] : cases) EXPECT_EQ(Read(text), name) << text;
}

TEST(NoteParser, ReadsOctaves) {
  EXPECT_EQ(Read("C4"), "C4");
  EXPECT_EQ(Read("Es3"), "Eb3");
  EXPECT_EQ(Read("C-1"), "C-1");
  EXPECT_EQ(Read("B flat 2"), "Character 8: There is more text after the note");
  EXPECT_EQ(Read("C10"), "Character 2: The octave is out of range");
  EXPECT_EQ(Read("C-2"), "Character 2: The octave is out of range");
  EXPECT_EQ(Read("C99999999999999999999"), "Character 2: The octave is out of range");
}

TEST(NoteParser, TheMeaningOfABareBIsASetting) {
  EXPECT_EQ(Read("B", MeaningOfB::kBFlat), "Bb");
  EXPECT_EQ(Read("b", MeaningOfB::kBFlat), "Bb");
  EXPECT_EQ(Read("H", MeaningOfB::kBFlat), "B");
  EXPECT_EQ(Read("Bb", MeaningOfB::kBFlat), "Bb");
  EXPECT_EQ(Read("si", MeaningOfB::kBFlat), "B");
  EXPECT_EQ(Read("B"), "B");
}

TEST(NoteParser, ErrorsSayWhatAndWhere) {
  EXPECT_EQ(Read(""), "Character 1: Nothing is written here");
  EXPECT_EQ(Read("x"), "Character 1: No note has this name");
  EXPECT_EQ(Read("\u0421"), "Character 1: No note has this name");
  EXPECT_EQ(Read("bbbb"), "Character 2: A note has at most two sharps or two flats");
  EXPECT_EQ(Read("C#b"), "Character 2: A note has at most two sharps or two flats");
  EXPECT_EQ(Read("Ebm"), "Character 3: There is more text after the note");
  EXPECT_EQ(Read("C\xFF"), "Character 2: There is more text after the note");
  EXPECT_EQ(Read(std::string(200, 'C')), "Character 41: The text is too long");
}

TEST(NoteParser, ReadsLists) {
  EXPECT_EQ(ReadList("C E G"), "C E G");
  EXPECT_EQ(ReadList("c,e;g"), "C E G");
  EXPECT_EQ(ReadList("C-Eb-G"), "C Eb G");
  EXPECT_EQ(ReadList("C sharp E as"), "C# E Ab");
  EXPECT_EQ(ReadList("do r\u00E9 mi"), "C D E");
  EXPECT_EQ(ReadList("C E Q"), "Character 5: No note has this name");
  EXPECT_EQ(ReadList("CEG"), "Character 2: There is more text after the note");
  EXPECT_EQ(ReadList(" , "), "Character 1: Nothing is written here");
}

TEST(NoteParser, ListsHaveALimit) {
  std::string text;
  for (std::size_t i = 0; i < kMostNotes; ++i) text += "C ";
  EXPECT_TRUE(ParseNotes(text));
  EXPECT_EQ(ParseNotes(text + "C").Error(), (ParseError{ParseReason::kTooMany, text.size()}));
  EXPECT_EQ(ParseNotes(std::string(1'000'000, ' ')).Error().reason, ParseReason::kTooLong);
}

TEST(NoteParser, SomeTextsBeginWithSeveralNotes) {
  EXPECT_THAT(NotePrefixes("Esus4", MeaningOfB::kBNatural),
              ElementsAre(NotePrefix{{Letter::kE}, 1}, NotePrefix{{Letter::kE, Accidental::kFlat}, 2}));
  EXPECT_THAT(NotePrefixes("Dom7", MeaningOfB::kBNatural),
              ElementsAre(NotePrefix{{Letter::kD}, 1}, NotePrefix{{Letter::kC}, 2}));
  EXPECT_THAT(NotePrefixes("7", MeaningOfB::kBNatural), ElementsAre());
}

}  // namespace
}  // namespace tonalith::theory
