// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Scales and chords as note names on C, written from general musical knowledge and not copied from the tables. An error
// in a pattern is only missed if the same error is in both notations.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

struct KnownScale {
  std::string_view name;
  std::string_view notes;
};

void PrintTo(const KnownScale& known, std::ostream* stream) { *stream << known.name; }

class KnownScales : public ::testing::TestWithParam<KnownScale> {};

TEST_P(KnownScales, HaveTheirKnownNotesOnC) {
  const KnownScale& known = GetParam();
  ASSERT_NE(ScaleLibrary::WithPacks().Find(known.name), nullptr) << known.name;
  EXPECT_EQ(ToText(ScaleLibrary::WithPacks().Notes(known.name)), ToText(FromNotes(known.notes))) << known.name;
}

constexpr KnownScale kCommon[] = {
    {"Major", "C D E F G A B"},
    {"Natural minor", "C D Eb F G Ab Bb"},
    {"Harmonic minor", "C D Eb F G Ab B"},
    {"Melodic minor (ascending)", "C D Eb F G A B"},
    {"Melodic minor (descending)", "C D Eb F G Ab Bb"},
    {"Melodic major (descending)", "C D E F G Ab Bb"},
    {"Ionian", "C D E F G A B"},
    {"Dorian", "C D Eb F G A Bb"},
    {"Phrygian", "C Db Eb F G Ab Bb"},
    {"Lydian", "C D E F# G A B"},
    {"Mixolydian", "C D E F G A Bb"},
    {"Aeolian", "C D Eb F G Ab Bb"},
    {"Locrian", "C Db Eb F Gb Ab Bb"},
    {"Minor pentatonic", "C Eb F G Bb"},
    {"Major pentatonic", "C D E G A"},
    {"Suspended pentatonic (Egyptian)", "C D F G Bb"},
    {"Man Gong", "C Eb F Ab Bb"},
    {"Ritusen", "C D F G A"},
    {"Dominant pentatonic", "C D E G Bb"},
    {"Minor 6 pentatonic", "C Eb F G A"},
    {"Dorian pentatonic", "C D Eb G A"},
    {"Minor major 7 pentatonic", "C Eb F G B"},
    {"Ionian pentatonic", "C E F G B"},
    {"Mixolydian pentatonic", "C E F G Bb"},
    {"Lydian pentatonic", "C E F# G B"},
    {"Blues", "C Eb F F# G Bb"},
    {"Seven-note blues", "C D Eb F Gb A Bb"},
    {"Major blues", "C D D# E G A"},
    {"Bebop dominant", "C D E F G A Bb B"},
    {"Bebop major", "C D E F G G# A B"},
    {"Bebop Dorian", "C D Eb E F G A Bb"},
    {"Bebop melodic minor", "C D Eb F G G# A B"},
    {"Lydian dominant", "C D E F# G A Bb"},
    {"Lydian augmented", "C D E F# G# A B"},
    {"Altered", "C Db D# E F# G# Bb"},
    {"Locrian natural 2", "C D Eb F Gb Ab Bb"},
    {"Phrygian dominant", "C Db E F G Ab Bb"},
    {"Dorian sharp 4", "C D Eb F# G A Bb"},
    {"Ultra-Locrian", "C Db Eb Fb Gb Ab A"},
    {"Harmonic major", "C D E F G Ab B"},
    {"Double harmonic major", "C Db E F G Ab B"},
    {"Hungarian minor", "C D Eb F# G Ab B"},
    {"Hungarian gypsy", "C D Eb F# G Ab Bb"},
    {"Oriental", "C Db E F Gb A Bb"},
    {"Neapolitan minor", "C Db Eb F G Ab B"},
    {"Neapolitan major", "C Db Eb F G A B"},
    {"Leading whole tone", "C D E F# G# A# B"},
    {"Lydian minor", "C D E F# G Ab Bb"},
    {"Major Locrian", "C D E F Gb Ab Bb"},
};

constexpr KnownScale kRare[] = {
    {"Whole tone", "C D E F# G# A#"},
    {"Diminished whole-half", "C D Eb F Gb Ab A B"},
    {"Diminished half-whole", "C Db Eb E F# G A Bb"},
    {"Augmented", "C Eb E G Ab B"},
    {"Inverse augmented", "C C# E F G# A"},
    {"Chromatic", "C C# D D# E F F# G G# A A# B"},
    {"Tritone scale", "C Db E Gb G Bb"},
    {"Two-semitone tritone scale", "C Db D F# G Ab"},
    {"Messiaen mode 3", "C D Eb E F# G Ab Bb B"},
    {"Messiaen mode 4", "C Db D F F# G Ab B"},
    {"Messiaen mode 5", "C Db F F# G B"},
    {"Messiaen mode 6", "C D E F F# G# A# B"},
    {"Messiaen mode 7", "C Db D Eb F F# G Ab A B"},
    {"Tcherepnin nine-note", "C Db Eb E F G Ab A B"},
    {"Prometheus", "C D E F# A Bb"},
    {"Prometheus Neapolitan", "C Db E F# A Bb"},
    {"Istrian", "C Db Eb Fb Gb Abb"},
    {"Hungarian major", "C D# E F# G A Bb"},
    {"Romanian major", "C Db E F# G A Bb"},
    {"Persian", "C Db E F Gb Ab B"},
    {"Enigmatic (ascending)", "C Db E F# G# A# B"},
    {"Enigmatic (descending)", "C Db E F G# A# B"},
    {"Spanish eight-note", "C Db Eb E F Gb Ab Bb"},
    {"Spanish Phrygian", "C Db Eb E F G Ab Bb"},
    {"Algerian", "C D Eb F F# G Ab B"},
    {"Hirajoshi", "C D Eb G Ab"},
    {"Miyako-bushi", "C Db F G Ab"},
    {"In-sen", "C Db F G Bb"},
    {"Iwato", "C Db F Gb Bb"},
    {"Kumoi", "C D Eb G A"},
    {"Yo", "C D F G A"},
    {"Min'yo", "C Eb F G Bb"},
    {"Ryukyu", "C E F G B"},
    {"Pelog", "C Db Eb G Ab"},
    {"Slendro", "C D F G A"},
    {"Bati major", "C E F G B"},
    {"Anchihoye", "C Db F Gb A"},
    {"Maqam Ajam", "C D E F G A B"},
    {"Maqam Nahawand", "C D Eb F G Ab B"},
    {"Dromos Ousak", "C Db Eb F G Ab Bb"},
    {"Makam Karcigar", "C D Eb F Gb A Bb"},
    {"Dromos Sabach", "C D Eb Fb G Ab Bb"},
    {"Maqam Nawa Athar", "C D Eb F# G Ab B"},
    {"Maqam Saba Zamzam", "C Db Eb Fb G Ab Bb"},
};

constexpr KnownScale kRagas[] = {
    {"Bilaval thaat", "C D E F G A B"},    {"Kalyan thaat", "C D E F# G A B"},
    {"Khamaj thaat", "C D E F G A Bb"},    {"Kafi thaat", "C D Eb F G A Bb"},
    {"Asavari thaat", "C D Eb F G Ab Bb"}, {"Bhairavi thaat", "C Db Eb F G Ab Bb"},
    {"Bhairav thaat", "C Db E F G Ab B"},  {"Purvi thaat", "C Db E F# G Ab B"},
    {"Marwa thaat", "C Db E F# G A B"},    {"Todi thaat", "C Db Eb F# G Ab B"},
    {"Raga Bhupali", "C D E G A"},         {"Raga Durga", "C D F G A"},
    {"Raga Megh", "C D F G Bb"},           {"Raga Malkauns", "C Eb F Ab Bb"},
    {"Raga Chandrakauns", "C Eb F Ab B"},  {"Raga Madhukauns", "C Eb F# G Bb"},
    {"Raga Dhani", "C Eb F G Bb"},         {"Raga Hindol", "C E F# A B"},
    {"Raga Kalavati", "C E G A Bb"},       {"Raga Hamsadhvani", "C D E G B"},
    {"Raga Shivaranjani", "C D Eb G A"},   {"Raga Abhogi", "C D Eb F A"},
    {"Raga Amritavarshini", "C E F# G B"}, {"Raga Revati", "C Db F G Bb"},
    {"Raga Gunkali", "C Db F G Ab"},       {"Raga Vibhas", "C Db E G Ab"},
    {"Raga Bhupalam", "C Db Eb G Ab"},     {"Raga Marwa", "C Db E F# A B"},
};

/// Chords whose name does not describe the notes, transposed from the works in which they occur (see below).
constexpr KnownScale kNamedChords[] = {
    {"Quartal chord of three notes", "C F Bb"},
    {"Quartal chord of four notes", "C F Bb Eb"},
    {"Quartal chord of five notes", "C F Bb Eb Ab"},
    {"Quintal chord", "C G D A"},
    {"Secundal chord", "C D E"},
    {"Mystic chord", "C F# Bb E A D"},
    {"Petrushka chord", "C E G F# A# C#"},
    {"Farben chord", "C G# B E A"},
    {"Dream chord", "C F F# G"},
    {"Italian sixth", "C E A#"},
    {"French sixth", "C E F# A#"},
    {"German sixth", "C E G A#"},
    {"Viennese trichord", "C Db Gb"},
    {"Slash chord II over I", "C D F# A"},
    {"Slash chord flat VII over I", "C Bb D F"},
    {"Slash chord flat II over I", "C Db F Ab"},
    {"Slash chord VI over I", "C A C# E"},
    {"Slash chord flat V over I", "C Gb Bb Db"},
};

/// Rows added after 1.0.
constexpr KnownScale kAdded[] = {
    {"Aeolian natural 7", "C D Eb F G Ab B"},
    {"Major sixth-diminished", "C D E F G G# A B"},
    {"Minor sixth-diminished", "C D Eb F G G# A B"},
    {"Minor hexatonic with major 7", "C D Eb F G B"},
    {"Aeolian hexatonic", "C Eb F G Ab Bb"},
    {"Phrygian hexatonic", "C Db Eb F Ab Bb"},
    {"Piongio", "C D F G A Bb"},
    {"Raga Yaman", "C D E F# G A B"},
    {"Raga Bageshri", "C D Eb F G A Bb"},
    {"Raga Kirwani", "C D Eb F G Ab B"},
    {"Raga Kedar", "C D E F F# G A B"},
    {"Raga Yaman Kalyan", "C D E F F# G A B"},
    {"Raga Khamaj", "C D E F G A Bb B"},
    {"Raga Miyan ki Malhar", "C D Eb F G A Bb B"},
    {"Raga Purvi", "C Db E F F# G Ab B"},
    {"Maqam Sikah (approximation)", "C Db Eb F G Ab Bb"},
    {"Dastgah Segah (approximation)", "C Db Eb F Gb Ab Bb"},
    {"Dastgah Nava (approximation)", "C D Eb F G Ab Bb"},
    {"Dastgah Rast-Panjgah", "C D E F G A B"},
    {"Pelog of seven tones (approximation)", "C Db Eb F G Ab Bb"},
    {"Major triad first inversion", "C Eb Ab"},
    {"Minor triad second inversion", "C F Ab"},
    {"Dominant 7 third inversion", "C D F# A"},
    {"Minor 7 flat 5 first inversion", "C Eb G A"},
    {"Slash chord V over I", "C G B D"},
    {"Slash chord II minor over I", "C D F A"},
    {"Dominant 7 altered", "C E Bb Db D# Gb G#"},
    {"Mixed quartal chord 5-6-5", "C F B E"},
    {"Mixed quartal chord 5-5-6", "C F Bb E"},
    {"Mixed quartal chord 6-5-5", "C F# B E"},
    {"Minor sixth dyad", "C Ab"},
};

constexpr KnownScale kPacks[] = {
    {"Kanakangi", "C Db Ebb F G Ab Bbb"},
    {"Mayamalavagowla", "C Db E F G Ab B"},
    {"Kharaharapriya", "C D Eb F G A Bb"},
    {"Mechakalyani", "C D E F# G A B"},
    {"Shanmukhapriya", "C D Eb F# G Ab Bb"},
    {"Rasikapriya", "C D# E F# G A# B"},
    {"Raga Hamsanandi", "C Db E F# A B"},
    {"Raga Sriranjani", "C D Eb F A Bb"},
    {"Raga Gambhiranata", "C E F G B"},
    {"Raga Nagasvaravali", "C E F G A"},
    {"Raga Malayamarutam", "C Db E G A Bb"},
    {"Raga Vijayanagari", "C D Eb F# G A"},
    {"Raga Niroshta", "C D E A B"},
    {"Raga Lavangi", "C Db F Ab"},
    {"Raga Ahir Bhairav", "C Db E F G A Bb"},
    {"Raga Madhuvanti", "C D Eb F# G A B"},
    {"Raga Multani", "C Db Eb F# G Ab B"},
    {"Raga Lalit", "C Db E F F# Ab B"},
    {"Raga Desh", "C D E F G A Bb B"},
    {"Raga Jog", "C Eb E F G Bb"},
    {"Raga Rageshri", "C D E F A Bb"},
    {"Raga Saraswati", "C D F# G A Bb"},
    {"Makam Segah (approximation)", "C Db Eb F G Ab B"},
    {"Maqam Huzam (approximation)", "C Db Eb Fb G Ab Bb"},
    {"Makam Hicaz", "C Db E F G A Bb"},
    {"Dromos Houzam", "C D# E F G A B"},
    {"Dromos Niavent", "C D Eb F# G Ab B"},
    {"Podhale (Goral)", "C D E F# G A Bb"},
    {"Kokin-joshi", "C Db F G Bb"},
    {"Yayue", "C D E F# G A B"},
    {"Pelog barang", "C Db F G Ab"},
    {"Bebop Dorian (major seventh)", "C D Eb F G A Bb B"},
    {"Bebop Lydian", "C D E F# G G# A B"},
    {"Bebop Lydian dominant", "C D E F# G A Bb B"},
    {"Combined minor", "C D Eb F G Ab A Bb B"},
    {"Altered natural 6", "C Db Eb Fb Gb A Bb"},
    {"Harmonic minor flat 5", "C D Eb F Gb Ab B"},
    {"Lydian augmented flat 3", "C D Eb F# G# A B"},
    {"Kenny Barron voicing", "C G D Eb Bb F"},
    {"Quartal chord of six notes", "C F Bb Eb Ab Db"},
    {"Quintal chord of five notes", "C G D A E"},
};

INSTANTIATE_TEST_SUITE_P(Common, KnownScales, ::testing::ValuesIn(kCommon));
INSTANTIATE_TEST_SUITE_P(Rare, KnownScales, ::testing::ValuesIn(kRare));
INSTANTIATE_TEST_SUITE_P(Ragas, KnownScales, ::testing::ValuesIn(kRagas));
INSTANTIATE_TEST_SUITE_P(NamedChords, KnownScales, ::testing::ValuesIn(kNamedChords));
INSTANTIATE_TEST_SUITE_P(Added, KnownScales, ::testing::ValuesIn(kAdded));
INSTANTIATE_TEST_SUITE_P(Packs, KnownScales, ::testing::ValuesIn(kPacks));

/// A chord as it is written in a known work, and its lowest note there.
struct QuotedChord {
  std::string_view name;
  int lowest;
  std::string_view notes;
};

TEST(QuotedChords, HaveTheNotesOfTheirWorks) {
  constexpr QuotedChord kQuoted[] = {
      {"Tristan chord", 5, "F B D# G#"},        {"Elektra chord", 4, "E B Db F Ab"},
      {"So What chord", 4, "E A D G B"},        {"German sixth", 8, "Ab C Eb F#"},
      {"French sixth", 8, "Ab C D F#"},         {"Italian sixth", 8, "Ab C F#"},
      {"Augurs chord", 4, "E G# B Eb G Bb Db"}, {"Neapolitan sixth", 5, "F Ab Db"},
      {"Bridge chord", 0, "C Eb G D F# A"},     {"Schoenberg signature hexachord", 10, "Eb C B Bb E G"},
  };
  for (const QuotedChord& quoted : kQuoted) {
    EXPECT_EQ(Transposed(ScaleLibrary::WithPacks().Notes(quoted.name), quoted.lowest), FromNotes(quoted.notes))
        << quoted.name;
  }
}

}  // namespace
}  // namespace tonalith::content_tests
