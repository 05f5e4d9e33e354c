// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/chm_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/failure.h"
#include "help/book_fixture.h"
#include "help/chm_stream.h"

namespace tonalith::help {
namespace {

using testing::HasSubstr;

TEST(ChmFile, ReturnsEveryObjectUnchanged) {
  const ChmObjects objects = ReadChmFile(BookPath());
  for (const char* const name : {"welcome.html", "strings.html", "chords/open.html", "look.css", "picture.png",
                                 "contents.hhc", "keywords.hhk"}) {
    const auto object = objects.find(std::string("/") + name);
    ASSERT_NE(object, objects.end()) << name;
    EXPECT_EQ(object->second, SourceOf(name)) << name;
  }
}

TEST(ChmFile, ReturnsAnObjectThatIsLargerThanABlock) {
  const ChmObjects objects = ReadChmFile(BookPath());
  const auto large = objects.find("/large.txt");
  ASSERT_NE(large, objects.end());
  EXPECT_GT(large->second.size(), 200'000U);
  EXPECT_EQ(large->second, BytesOf(std::string(TONALITH_BINARY_DIR) + "/tests/help/large.txt"));
}

TEST(ChmFile, ReturnsOnlyTheSettingsOfTheCompilersObjects) {
  const ChmObjects objects = ReadChmFile(BookPath());
  EXPECT_TRUE(objects.contains("/#SYSTEM"));
  for (const auto& [path, bytes] : objects) {
    EXPECT_EQ(path[0], '/') << path;
    EXPECT_TRUE(path == "/#SYSTEM" || (path[1] != '#' && path[1] != '$')) << path;
  }
}

TEST(ChmFile, FailureNamesTheFile) {
  try {
    ReadChmFile("/nowhere/TLHELP.chm");
    FAIL();
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.Description(), "The file '/nowhere/TLHELP.chm' cannot be read: it is no file.");
  }
}

/// A stream written as text: O or E for the markers, <5> for a length, all else unchanged.
std::string Stream(const std::string& letters) {
  std::string bytes;
  for (std::size_t at = 0; at < letters.size(); ++at) {
    if (letters[at] != '<') {
      bytes += letters[at];
      continue;
    }
    const std::size_t end = letters.find('>', at);
    std::uint64_t length = std::stoull(letters.substr(at + 1, end - at - 1));
    for (std::size_t i = 0; i < kChmLengthSize; ++i, length >>= 8U) bytes += static_cast<char>(length & 0xFFU);
    at = end;
  }
  return bytes;
}

/// Reads the stream in chunks of `chunk` bytes.
ChmObjects ReadText(const std::string& bytes, std::size_t chunk = 3) {
  std::size_t at = 0;
  return ReadChmStream([&](std::span<std::uint8_t> buffer) {
    const std::size_t size = std::min({chunk, buffer.size(), bytes.size() - at});
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), size, buffer.begin());
    at += size;
    return size;
  });
}

void ExpectDamaged(const std::string& letters) {
  try {
    ReadText(Stream(letters));
    ADD_FAILURE() << letters;
  } catch (const core::Failure& failure) {
    EXPECT_THAT(failure.Description(), HasSubstr("truncated or damaged"));
  }
}

TEST(ChmStream, ReadsObjectsInChunksOfAnySize) {
  const std::string bytes = Stream("O<2><5>/ahelloO<3><0>/bcE");
  const ChmObjects expected{{"/a", "hello"}, {"/bc", ""}};
  for (const std::size_t chunk : {1U, 2U, 7U, 1000U}) EXPECT_EQ(ReadText(bytes, chunk), expected);
}

TEST(ChmStream, WithoutAnEndMarkerIsDamaged) {
  ExpectDamaged("");
  ExpectDamaged("O<2><5>/ahello");
  ExpectDamaged("O<2><5>/ahel");
  ExpectDamaged("O<2><5>/");
  ExpectDamaged("O<2>");
  ExpectDamaged("O");
}

TEST(ChmStream, WithAnUnknownMarkerIsDamaged) {
  ExpectDamaged("X");
  ExpectDamaged("O<2><1>/axQ");
}

TEST(ChmStream, LengthsAboveTheLimitsAreDamage) {
  ExpectDamaged("O<1025><1>/a");
  ExpectDamaged("O<2><33554433>/a");
  ExpectDamaged("O<18446744073709551615><1>/a");
  ExpectDamaged("O<2><18446744073709551615>/a");
}

TEST(ChmStream, TotalSizeOfObjectsIsLimited) {
  const std::string object = Stream("O<2><33554432>/a") + std::string(kLargestChmObject, 'x');
  EXPECT_NO_THROW(ReadText(object + object + "E", 1U << 16U));
  EXPECT_THROW(ReadText(object + object + Stream("O<2><1>/bxE"), 1U << 16U), core::Failure);
}

TEST(ChmStream, ClaimedBytesAreNotAllocated) {
  // A hundred claims of 32 MiB each would exceed the memory of the test.
  for (int i = 0; i < 100; ++i) ExpectDamaged("O<2><33554432>/ax");
}

TEST(ChmStream, TooManyObjectsAreDamage) {
  std::string bytes;
  for (std::size_t i = 0; i <= kMostChmObjects; ++i) {
    const std::string path = "/" + std::to_string(100'000 + i);
    bytes += Stream("O<" + std::to_string(path.size()) + "><0>") + path;
  }
  EXPECT_THROW(ReadText(bytes + "E", 1000), core::Failure);
}

}  // namespace
}  // namespace tonalith::help
