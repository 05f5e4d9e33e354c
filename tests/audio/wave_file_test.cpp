// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/wave_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "audio/wave_bytes.h"
#include "platform/system/posix_file_input.h"
#include "support/scripted_audio.h"

namespace tonalith::audio {
namespace {

using testing::Bytes;
using testing::Chunk;
using testing::ExtensibleRecord;
using testing::Number;
using testing::PlainRecord;
using testing::Riff;

struct Outcome {
  std::string problem = "none";
  platform::WaveFormat format;
  std::vector<std::byte> samples;
};

Outcome ReadAll(platform::InputFile& file) {
  Outcome outcome;
  WaveFile wave(file);
  WaveFile::Problem problem = wave.EnterForm();
  if (!problem) problem = wave.ReadFormat(outcome.format);
  if (!problem) problem = wave.FindData();
  if (!problem) problem = wave.ReadData(outcome.samples);
  outcome.problem = problem ? problem->English() : "none";
  return outcome;
}

Outcome ReadAll(const Bytes& bytes) {
  tests::AudioScript script;
  tests::ScriptedFileInput files(script);
  files.Put("file", bytes);
  return ReadAll(*files.Open("file"));
}

const Bytes kFormat = Chunk("fmt ", PlainRecord({}));

TEST(WaveFile, ReadsFormatAndSamples) {
  const Outcome read = ReadAll(testing::Wave({1, 2, 48000, 24}, Number(0x123456, 6)));
  EXPECT_EQ(read.problem, "none");
  EXPECT_EQ(read.format.record.wFormatTag, 1);
  EXPECT_EQ(read.format.record.nChannels, 2);
  EXPECT_EQ(read.format.record.nSamplesPerSec, 48000U);
  EXPECT_EQ(read.format.record.nAvgBytesPerSec, 288000U);
  EXPECT_EQ(read.format.record.nBlockAlign, 6);
  EXPECT_EQ(read.format.record.wBitsPerSample, 24);
  EXPECT_EQ(read.samples, Number(0x123456, 6));
}

TEST(WaveFile, RefusesOtherFormsAndBigEndianFiles) {
  EXPECT_EQ(ReadAll(Riff(kFormat, std::nullopt, "AVI ")).problem, "Incorrect format");
  EXPECT_EQ(ReadAll(Riff(kFormat, std::nullopt, "WAVE", "RIFX")).problem, "Incorrect format");
  EXPECT_EQ(ReadAll(Riff(kFormat, std::nullopt, "WAVE", "LIST")).problem, "Incorrect format");
}

TEST(WaveFile, RequiresSixteenBytesOfFormat) {
  EXPECT_EQ(ReadAll(Riff(Chunk("fmt ", Number(1, 14)) + Chunk("data", Number(0, 4)))).problem,
            "Not enough data, only 14, wanted 16");
  EXPECT_EQ(ReadAll(Riff(Chunk("fmt ", {}) + Chunk("data", Number(0, 4)))).problem,
            "Not enough data, only 0, wanted 16");
  EXPECT_EQ(ReadAll(Riff(Chunk("fmt ", PlainRecord({})) + Chunk("data", Number(0, 4)))).problem, "none");
}

TEST(WaveFile, ReadsTwentyBytesOfFormatForEveryChunkSize) {
  // The two bytes after a plain record are the first of the next chunk's code.
  const Outcome read = ReadAll(Riff(kFormat + Chunk("data", Number(0, 4))));
  EXPECT_EQ(read.format.record.cbSize, 'd' | ('a' << 8));
}

TEST(WaveFile, FailsForATruncatedFormatAtTheEndOfTheFile) {
  EXPECT_EQ(ReadAll(Riff(Chunk("data", Number(0, 4)) + Chunk("fmt ", Number(1, 12), 16), 0xFFFF)).problem,
            "Not enough data read");
}

TEST(WaveFile, AcceptsSixteenBytesOfFormatAtTheEndOfTheFile) {
  EXPECT_EQ(ReadAll(Riff(Chunk("data", Number(0, 4)) + kFormat)).problem, "none");
}

TEST(WaveFile, FindsSamplesBeforeTheFormat) {
  const Outcome read = ReadAll(Riff(Chunk("data", Number(77, 4)) + Chunk("LIST", Number(0, 7)) + kFormat));
  EXPECT_EQ(read.problem, "none");
  EXPECT_EQ(read.samples, Number(77, 4));
}

TEST(WaveFile, SkipsOddSizedChunksBeforeTheSamples) {
  const Bytes extra = Chunk("bext", Number(0, 601)) + Chunk("LIST", Number(0, 11)) + Chunk("fact", Number(2, 4));
  EXPECT_EQ(ReadAll(Riff(extra + kFormat + extra + Chunk("data", Number(5, 4)))).samples, Number(5, 4));
}

TEST(WaveFile, ReportsTheMissingChunk) {
  EXPECT_EQ(ReadAll(Riff(Chunk("data", Number(0, 4)))).problem, "Could not find fmt chunk");
  EXPECT_EQ(ReadAll(Riff(kFormat)).problem, "Could not descend into data");
  EXPECT_EQ(ReadAll(Riff(kFormat + Chunk("DATA", Number(0, 4)))).problem, "Could not descend into data");
}

TEST(WaveFile, ReportsMissingSamples) {
  EXPECT_EQ(ReadAll(Riff(kFormat + Chunk("data", Number(0, 4), 6))).problem, "Could not read full buffer");
  EXPECT_EQ(ReadAll(Riff(kFormat + Chunk("data", Number(0, 4), 0xFFFFFFFF), 0xFFFFFFFF)).problem,
            "Could not read full buffer");
}

TEST(WaveFile, ReadsAnEmptyDataChunk) {
  const Outcome read = ReadAll(Riff(kFormat + Chunk("data", {})));
  EXPECT_EQ(read.problem, "none");
  EXPECT_TRUE(read.samples.empty());
}

TEST(WaveFile, ReadsOnlyTheNumberOfBytesInTheChunkHeader) {
  EXPECT_EQ(ReadAll(Riff(kFormat + Chunk("data", Number(0x0102030405060708, 8), 4))).samples, Number(0x05060708, 4));
}

TEST(WaveFile, ReadsTheFormatTagOfAnExtensibleRecord) {
  const Outcome read = ReadAll(Riff(Chunk("fmt ", ExtensibleRecord({3, 2, 44100, 32})) + Chunk("data", Number(0, 8))));
  EXPECT_EQ(read.format.record.wFormatTag, platform::wave_format_tag::kExtensible);
  EXPECT_EQ(read.format.record.cbSize, 22);
  EXPECT_EQ(read.format.subFormat, platform::wave_format_tag::kFloat);
}

TEST(WaveFile, HasNoSubFormatForATruncatedExtensibleRecord) {
  Bytes record = ExtensibleRecord({1, 1, 44100, 16});
  record.resize(38);
  const Outcome read = ReadAll(Riff(Chunk("fmt ", record) + Chunk("data", Number(9, 4))));
  EXPECT_EQ(read.problem, "none");
  EXPECT_EQ(read.format.subFormat, std::nullopt);
  EXPECT_EQ(read.samples, Number(9, 4));
}

TEST(WaveFile, FailsForAFileTruncatedAtAnyByte) {
  const Bytes whole = Riff(Chunk("LIST", Number(0, 5)) + kFormat + Chunk("data", Number(0, 10)));
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_NE(ReadAll(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))).problem, "none") << size;
  }
}

/// Limits the memory of the process to its present size plus `more` bytes.
class MemoryBound {
 public:
  explicit MemoryBound(std::size_t more) {
    ::getrlimit(RLIMIT_DATA, &before_);
    std::ifstream status("/proc/self/status");
    std::size_t used = 0;
    for (std::string word; status >> word;) {
      if (word == "VmData:") status >> used;
    }
    rlimit bound = before_;
    bound.rlim_cur = used * 1024 + more;
    ::setrlimit(RLIMIT_DATA, &bound);
  }
  MemoryBound(const MemoryBound&) = delete;
  MemoryBound& operator=(const MemoryBound&) = delete;
  ~MemoryBound() { ::setrlimit(RLIMIT_DATA, &before_); }

 private:
  rlimit before_{};
};

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kOwnAllocator = true;
#else
constexpr bool kOwnAllocator = false;
#endif

TEST(WaveFile, AllocatesAtMostTheFileSizeForAFalseChunkSize) {
  const std::string path = ::testing::TempDir() + "lying_size.wav";
  const Bytes bytes = Riff(kFormat + Chunk("data", Number(0, 100), 0xFFFFFFF0), 0xFFFFFFFF);
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
  platform::PosixFileInput files;
  const std::unique_ptr<platform::InputFile> file = files.Open(path);
  ASSERT_NE(file, nullptr);
  Outcome read;
  if (kOwnAllocator) {
    read = ReadAll(*file);
  } else {
    const MemoryBound bound(std::size_t{16} << 20U);
    EXPECT_THROW(std::vector<std::byte>(std::size_t{64} << 20U), std::bad_alloc) << "the limit must be effective";
    read = ReadAll(*file);
  }
  EXPECT_EQ(read.problem, "Could not read full buffer");
  EXPECT_LE(read.samples.capacity(), 100U);
  std::filesystem::remove(path);
}

TEST(WaveFile, RefusesSamplesAboveTheSizeLimit) {
  constexpr std::uint32_t kMost = std::uint32_t{8} << 20U;
  const std::string path = ::testing::TempDir() + "nearly_endless.wav";
  for (const std::uint32_t size : {kMost, kMost + 1, 0xFFFFFF00U}) {
    const Bytes bytes = Riff(kFormat + Chunk("data", Bytes(), size), 0xFFFFFFFF);
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
    std::filesystem::resize_file(path, std::uintmax_t{8} << 30U);
    platform::PosixFileInput files;
    const std::unique_ptr<platform::InputFile> file = files.Open(path);
    ASSERT_NE(file, nullptr);
    const Outcome read = ReadAll(*file);
    EXPECT_EQ(read.problem, size == kMost ? "none" : "Could not read full buffer") << size;
    EXPECT_EQ(read.samples.size(), size == kMost ? std::size_t{kMost} : 0U) << size;
  }
  std::filesystem::remove(path);
}

TEST(WaveFile, StopsInAFileOfEmptyChunks) {
  const std::string path = ::testing::TempDir() + "empty_chunks.wav";
  const Bytes start = Riff({}, 0xFFFFFFFF);
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(start.data()), std::ssize(start));
  std::filesystem::resize_file(path, std::uintmax_t{4} << 30U);
  platform::PosixFileInput files;
  const std::unique_ptr<platform::InputFile> file = files.Open(path);
  ASSERT_NE(file, nullptr);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(ReadAll(*file).problem, "Could not find fmt chunk");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace tonalith::audio
