// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/typed_note.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tonalith::core {
namespace {

/// The sharp names of a comma-separated list of texts; "-" for a text that is no note.
std::string Read(const std::string& texts) {
  std::string names;
  for (std::size_t at = 0; at <= texts.size();) {
    const std::size_t comma = std::min(texts.find(',', at), texts.size());
    const auto note = NoteOfTypedText(texts.substr(at, comma - at));
    names += (names.empty() ? "" : " ") + (note ? std::string(kSharpNotes.at(static_cast<std::size_t>(*note))) : "-");
    at = comma + 1;
  }
  return names;
}

TEST(TypedNote, ReadsTheTwelveNamesInAnyCase) {
  EXPECT_EQ(Read("C,C#,D,D#,E,F,F#,G,G#,A,A#,B"), "C C# D D# E F F# G G# A A# B");
  EXPECT_EQ(Read("c,c#,d,d#,e,f,f#,g,g#,a,a#,b"), "C C# D D# E F F# G G# A A# B");
}

TEST(TypedNote, ReadsFlats) {
  EXPECT_EQ(Read("Db,Eb,Gb,Ab,Bb"), "C# D# F# G# A#");
  EXPECT_EQ(Read("db,EB,bb,BB,ab"), "C# D# A# A# G#");
  EXPECT_EQ(Read("D\u266D,b\u266D"), "C# A#");
}

TEST(TypedNote, ReadsSymbolsAndWords) {
  EXPECT_EQ(Read("F\u266F,f\u266F,C\u266E"), "F# F# C");
  EXPECT_EQ(Read("F sharp,f-sharp,FSHARP,B flat,b-flat,Eflat,G natural"), "F# F# F# A# A# D# G");
  EXPECT_EQ(Read(" g ,B b"), "G A#");
}

TEST(TypedNote, ReadsAccidentalsAcrossNaturalSemitones) { EXPECT_EQ(Read("Cb,Fb,E#,B#"), "B E F C"); }

TEST(TypedNote, ReadsGermanNamesExceptThatBStaysB) {
  EXPECT_EQ(Read("H,h,B,b"), "B B B B");
  EXPECT_EQ(Read("Cis,Dis,Fis,Gis,Ais,Eis,His"), "C# D# F# G# A# F C");
  EXPECT_EQ(Read("Des,Es,Ges,As,Ces,Fes,es,as"), "C# D# F# G# B E D# G#");
}

TEST(TypedNote, ReadsNothingElse) {
  EXPECT_EQ(Read(",-,I,Hello,Am,C minor,##,#,C##,Dbb,ds,s"), "- - - - - - - - - - - -");
  EXPECT_EQ(Read("C\xE2,\u266F,1"), "- - -");
  EXPECT_EQ(Read(std::string(39, ' ') + "C"), "C");
  EXPECT_EQ(Read(std::string(40, ' ') + "C"), "-");
}

}  // namespace
}  // namespace tonalith::core
