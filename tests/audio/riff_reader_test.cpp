// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/riff_reader.h"

#include <gtest/gtest.h>

#include "audio/wave_bytes.h"
#include "support/scripted_audio.h"

namespace tonalith::audio {
namespace {

using testing::Bytes;
using testing::Chunk;
using testing::Number;
using testing::Riff;
using testing::Text;

/// A RIFF file in memory. FindData returns "found <size> at <offset>" or the failure.
class OpenRiff {
 public:
  explicit OpenRiff(const Bytes& bytes) {
    files_.Put("file", bytes);
    file_ = files_.Open("file");
  }
  RiffReader Reader() { return RiffReader(*file_); }

  std::string FindData() {
    RiffReader reader(*file_);
    MMCKINFO outer;
    if (reader.Descend(outer) != Descent::kEntered) return "no outer chunk";
    MMCKINFO data{.ckid = StringToFOURCC("data")};
    if (reader.FindChunk(data, outer) != Descent::kEntered) return "not there";
    return "found " + std::to_string(data.cksize) + " at " + std::to_string(data.dwDataOffset);
  }

  tests::AudioScript& Script() { return script_; }

 private:
  tests::AudioScript script_;
  tests::ScriptedFileInput files_{script_};
  std::unique_ptr<platform::InputFile> file_;
};

std::string FindDataIn(const Bytes& bytes) { return OpenRiff(bytes).FindData(); }

TEST(RiffReader, PadsAShortCodeWithBlanks) {
  EXPECT_EQ(StringToFOURCC("fmt"), StringToFOURCC("fmt "));
  EXPECT_EQ(StringToFOURCC("RIFF"), 0x46464952U);
}

TEST(RiffReader, SeeksBackToTheStart) {
  OpenRiff file(Riff(Chunk("data", Number(1, 4))));
  RiffReader reader = file.Reader();
  const std::uint64_t size = reader.Remaining();
  MMCKINFO outer;
  ASSERT_EQ(reader.Descend(outer), Descent::kEntered);
  EXPECT_EQ(reader.Remaining(), size - 12);
  EXPECT_EQ(reader.Seek(0), 0);
  EXPECT_EQ(reader.Remaining(), size);
}

TEST(RiffReader, AnOuterChunkThatEndsBeforeItsFormHasNone) {
  Bytes bytes = Text("RIFF");
  const Bytes size = Number(4, 4);
  bytes.insert(bytes.end(), size.begin(), size.end());
  OpenRiff file(bytes);
  RiffReader reader = file.Reader();
  MMCKINFO outer{.fccType = StringToFOURCC("WAVE")};
  EXPECT_EQ(reader.Descend(outer), Descent::kNotThere);
  EXPECT_EQ(outer.fccType, 0U);
}

TEST(RiffReader, EntersTheOuterChunkAndReadsItsForm) {
  OpenRiff file(Riff(Chunk("data", Number(1, 4))));
  RiffReader reader = file.Reader();
  MMCKINFO outer;
  ASSERT_EQ(reader.Descend(outer), Descent::kEntered);
  EXPECT_EQ(outer.ckid, StringToFOURCC("RIFF"));
  EXPECT_EQ(outer.fccType, StringToFOURCC("WAVE"));
  EXPECT_EQ(outer.cksize, 16U);
  EXPECT_EQ(outer.dwDataOffset, 8U);
}

TEST(RiffReader, DoesNotEnterAFileShorterThanItsHeader) {
  EXPECT_EQ(FindDataIn({}), "no outer chunk");
  EXPECT_EQ(FindDataIn(Text("RIFF")), "no outer chunk");
  EXPECT_EQ(FindDataIn(Text("RIFF") + Number(4, 4) + Text("WA")), "no outer chunk");
}

TEST(RiffReader, FindsAChunkAfterOthersAndTheirPadBytes) {
  EXPECT_EQ(FindDataIn(Riff(Chunk("LIST", Number(1, 3)) + Chunk("fact", Number(1, 4)) + Chunk("bext", Number(1, 5)) +
                            Chunk("data", Number(1, 2)))),
            "found 2 at 58");
}

TEST(RiffReader, FindsAnOddSizedLastChunkWithoutItsPadByte) {
  EXPECT_EQ(FindDataIn(Text("RIFF") + Number(15, 4) + Text("WAVE") + Text("data") + Number(3, 4) + Number(0, 3)),
            "found 3 at 20");
}

TEST(RiffReader, DoesNotSearchAfterTheParentsEnd) {
  EXPECT_EQ(FindDataIn(Riff(Chunk("fact", Number(1, 4)), 16) + Chunk("data", Number(1, 2))), "not there");
  EXPECT_EQ(FindDataIn(Riff(Chunk("data", Number(1, 2)), 0)), "not there");
  EXPECT_EQ(FindDataIn(Riff(Chunk("data", Number(1, 2)), 11)), "not there") << "the header reaches over the end";
}

TEST(RiffReader, LimitsAnOversizedParentToTheFileSize) {
  EXPECT_EQ(FindDataIn(Riff(Chunk("data", Number(1, 2)), 0xFFFFFFFF)), "found 2 at 20");
  EXPECT_EQ(FindDataIn(Riff(Chunk("fact", Number(1, 2)), 0xFFFFFFFF)), "not there");
}

TEST(RiffReader, StopsAtAChunkThatExceedsTheFile) {
  EXPECT_EQ(FindDataIn(Riff(Chunk("fact", Number(1, 4), 0xFFFFFFFF) + Chunk("data", Number(1, 2)))), "not there");
  EXPECT_EQ(FindDataIn(Riff(Chunk("fact", Number(1, 4), 0x7FFFFFFF) + Chunk("data", Number(1, 2)))), "not there");
}

TEST(RiffReader, SkipsEmptyChunks) {
  EXPECT_EQ(FindDataIn(Riff(Chunk("fact", {}) + Chunk("fact", {}) + Chunk("data", Number(1, 2)))), "found 2 at 36");
}

TEST(RiffReader, StopsAtAFailedReadOrSeek) {
  const Bytes bytes = Riff(Chunk("fact", Number(1, 4)) + Chunk("data", Number(1, 2)));
  for (int nth = 1; nth <= 4; ++nth) {
    OpenRiff file(bytes);
    file.Script().Refuse("read", nth);
    EXPECT_EQ(file.FindData(), nth <= 2 ? "no outer chunk" : "not there") << "read " << nth;
  }
  OpenRiff file(bytes);
  file.Script().Refuse("seek");
  EXPECT_EQ(file.FindData(), "not there");
}

TEST(RiffReader, CountsTheRemainingBytes) {
  OpenRiff file(Number(0, 10));
  RiffReader reader = file.Reader();
  EXPECT_EQ(reader.Remaining(), 10U);
  EXPECT_EQ(reader.Seek(4), 4);
  EXPECT_EQ(reader.Remaining(), 6U);
  EXPECT_EQ(reader.Seek(400), 400);
  EXPECT_EQ(reader.Remaining(), 0U);
}

TEST(RiffReader, ChecksAtMostAThousandChunks) {
  const auto afterChunks = [](int count) {
    Bytes chunks;
    for (int i = 0; i < count; ++i) chunks = std::move(chunks) + Chunk("junk", {});
    return FindDataIn(Riff(chunks + Chunk("data", Number(1, 4))));
  };
  EXPECT_EQ(afterChunks(999), "found 4 at " + std::to_string(12 + 999 * 8 + 8));
  EXPECT_EQ(afterChunks(1000), "not there");
}

}  // namespace
}  // namespace tonalith::audio
