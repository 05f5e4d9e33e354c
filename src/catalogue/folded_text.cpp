// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "catalogue/folded_text.h"

#include "core/upper_case.h"

namespace tonalith::catalogue {
namespace {

// The base letters of U+00C0 to U+024F and of U+1E00 to U+1EFF; a point for characters without one.
constexpr char32_t kLatinBegin = 0xC0;
constexpr std::string_view kLatin =
    "AAAAAA.CEEEEIIII.NOOOOO.OUUUUY..AAAAAA.CEEEEIIII.NOOOOO.OUUUUY.YAAAAAACCCCCCCCDDDDEEEEEEEEEEGGGG"
    "GGGGHHHHIIIIIIIIII..JJKK.LLLLLL..LLNNNNNN...OOOOOO..RRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZS"
    "................................OO.............UU............................AAIIOOUUUUUUUUUU.AA"
    "AA....GGKKOOOO..J...GG..NNAA..OOAAAAEEEEIIIIOOOORRRRUUUUSSTT..HH......AAEEOOOOOOOOYY............"
    "................";
constexpr char32_t kAdditionalBegin = 0x1E00;
constexpr std::string_view kAdditional =
    "AABBBBBBCCDDDDDDDDDDEEEEEEEEEEFFGGHHHHHHHHHHIIIIKKKKKKLLLLLLLLMMMMMMNNNNNNNNOOOOOOOOPPPPRRRRRRRR"
    "SSSSSSSSSSTTTTTTTTUUUUUUUUUUVVVVWWWWWWWWWWXXXXYYZZZZZZHTWY.S....AAAAAAAAAAAAAAAAAAAAAAAAEEEEEEEE"
    "EEEEEEEEIIIIOOOOOOOOOOOOOOOOOOOOOOOOUUUUUUUUUUUUUUYYYYYYYY......";
static_assert(kLatin.size() == 0x250 - kLatinBegin && kAdditional.size() == 0x1F00 - kAdditionalBegin);

constexpr char32_t kMarksBegin = 0x300;
constexpr char32_t kMarksEnd = 0x370;

char32_t BaseIn(std::string_view table, char32_t begin, char32_t character) {
  if (character < begin || character - begin >= table.size()) return character;
  const char base = table[character - begin];
  return base == '.' ? character : static_cast<unsigned char>(base);
}

char32_t Base(char32_t character) {
  switch (character) {
    case 0x2019:  // right single quotation mark
      return U'\'';
    case 0x266D:  // flat sign
      return U'B';
    case 0x266F:  // sharp sign
      return U'#';
    default:
      return BaseIn(kAdditional, kAdditionalBegin, BaseIn(kLatin, kLatinBegin, character));
  }
}

}  // namespace

void FoldInto(std::u32string& folded, std::string_view text) {
  core::UpperCaseInto(folded, text);
  constexpr char32_t kFirstFolded = 0x80;
  std::size_t length = 0;
  for (const char32_t character : folded) {
    if (character >= kMarksBegin && character < kMarksEnd) continue;
    folded[length++] = character < kFirstFolded ? character : Base(character);
  }
  folded.resize(length);
}

std::u32string Fold(std::string_view text) {
  std::u32string folded;
  FoldInto(folded, text);
  return folded;
}

}  // namespace tonalith::catalogue
