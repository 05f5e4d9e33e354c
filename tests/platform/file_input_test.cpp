// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/file_input.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "audio/wave_bytes.h"
#include "platform/system/local_time_of_day.h"
#include "platform/system/posix_file_input.h"
#include "support/scripted_audio.h"

namespace tonalith::platform {
namespace {

using testing::Bytes;

/// A temporary folder for one test.
class TestFolder {
 public:
  TestFolder() {
    std::string name = ::testing::TempDir() + "tonalith_files_XXXXXX";
    path_ = ::mkdtemp(name.data());
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  [[nodiscard]] std::string Of(const std::string& name) const { return path_ + "/" + name; }
  void Put(const std::string& name, const Bytes& content) const {
    std::ofstream(Of(name), std::ios::binary).write(reinterpret_cast<const char*>(content.data()), std::ssize(content));
  }

 private:
  std::string path_;
};

struct PosixHost {
  std::string Put(const Bytes& content) {
    folder.Put("file", content);
    return folder.Of("file");
  }
  [[nodiscard]] std::string Missing() const { return folder.Of("missing"); }
  FileInput& Files() { return files; }
  TestFolder folder;
  PosixFileInput files;
};

struct ScriptedHost {
  std::string Put(const Bytes& content) {
    files.Put("file", content);
    return "file";
  }
  [[nodiscard]] static std::string Missing() { return "missing"; }
  FileInput& Files() { return files; }
  tests::AudioScript script;
  tests::ScriptedFileInput files{script};
};

Bytes Counting(std::size_t size) {
  Bytes bytes;
  for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<std::byte>(i * 7 + i / 256));
  return bytes;
}

Bytes ReadFrom(InputFile& file, std::size_t size) {
  Bytes bytes(size);
  const std::int64_t count = file.Read(bytes);
  EXPECT_GE(count, 0);
  bytes.resize(static_cast<std::size_t>(count));
  return bytes;
}

template <class Host>
class FileInputConformance : public ::testing::Test {
 protected:
  Host host_;
};
using Hosts = ::testing::Types<PosixHost, ScriptedHost>;
TYPED_TEST_SUITE(FileInputConformance, Hosts);

TYPED_TEST(FileInputConformance, ReadsAFileFromItsStartToItsEnd) {
  const Bytes content = Counting(10000);
  const auto file = this->host_.Files().Open(this->host_.Put(content));
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->Size(), 10000U);
  Bytes read;
  for (const std::size_t size : {1, 8, 4095, 4096, 1, 1000, 5000}) {
    const Bytes part = ReadFrom(*file, size);
    read.insert(read.end(), part.begin(), part.end());
  }
  EXPECT_EQ(read, content);
  EXPECT_TRUE(ReadFrom(*file, 10).empty());
}

TYPED_TEST(FileInputConformance, SeeksToAnyPosition) {
  const Bytes content = Counting(9000);
  const auto file = this->host_.Files().Open(this->host_.Put(content));
  for (const std::uint64_t position : {8000U, 0U, 4090U, 3U, 4096U}) {
    EXPECT_EQ(file->Seek(position), static_cast<std::int64_t>(position));
    const Bytes read = ReadFrom(*file, 20);
    EXPECT_TRUE(std::equal(read.begin(), read.end(), content.begin() + static_cast<std::ptrdiff_t>(position)));
    EXPECT_EQ(read.size(), 20U);
  }
}

TYPED_TEST(FileInputConformance, ReadsNothingAfterTheEnd) {
  const auto file = this->host_.Files().Open(this->host_.Put(Counting(10)));
  EXPECT_EQ(file->Seek(8), 8);
  EXPECT_EQ(ReadFrom(*file, 100).size(), 2U);
  EXPECT_EQ(file->Seek(1000000), 1000000);
  EXPECT_TRUE(ReadFrom(*file, 1).empty());
  EXPECT_EQ(file->Seek(0), 0);
  EXPECT_EQ(ReadFrom(*file, 1).size(), 1U);
}

TYPED_TEST(FileInputConformance, OpensAnEmptyFile) {
  const auto file = this->host_.Files().Open(this->host_.Put({}));
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->Size(), 0U);
  EXPECT_TRUE(ReadFrom(*file, 1).empty());
}

TYPED_TEST(FileInputConformance, DoesNotOpenAMissingFile) {
  EXPECT_EQ(this->host_.Files().Open(this->host_.Missing()), nullptr);
  EXPECT_EQ(this->host_.Files().Open(""), nullptr);
}

TEST(PosixFileInput, RefusesNonRegularFilesWithoutBlocking) {
  const TestFolder folder;
  std::filesystem::create_directory(folder.Of("folder.wav"));
  ASSERT_EQ(::mkfifo(folder.Of("pipe.wav").c_str(), 0600), 0);
  std::filesystem::create_symlink("loop.wav", folder.Of("loop.wav"));
  std::filesystem::create_symlink("/dev/zero", folder.Of("device.wav"));
  PosixFileInput files;
  for (const char* name : {"folder.wav", "pipe.wav", "loop.wav", "device.wav"}) {
    EXPECT_EQ(files.Open(folder.Of(name)), nullptr) << name;
  }
  EXPECT_EQ(files.Open("/dev/null"), nullptr);
  EXPECT_EQ(files.Open(std::string("a\0b", 3)), nullptr);
}

TEST(PosixFileInput, FollowsALinkToARegularFile) {
  const TestFolder folder;
  folder.Put("sound.wav", Counting(5));
  std::filesystem::create_symlink("sound.wav", folder.Of("link.wav"));
  EXPECT_NE(PosixFileInput().Open(folder.Of("link.wav")), nullptr);
}

TEST(PosixFileInput, ReadsBackslashesAsSlashesIfThePathDoesNotExist) {
  const TestFolder folder;
  std::filesystem::create_directory(folder.Of("Audio"));
  folder.Put("Audio/0.wav", Counting(5));
  const auto file = PosixFileInput().Open(folder.Of("Audio\\0.wav"));
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->Size(), 5U);
}

TEST(PosixFileInput, PrefersAFileWithABackslashInItsName) {
  const TestFolder folder;
  std::filesystem::create_directory(folder.Of("a"));
  folder.Put("a/b", Counting(1));
  folder.Put("a\\b", Counting(2));
  EXPECT_EQ(PosixFileInput().Open(folder.Of("a\\b"))->Size(), 2U);
}

TEST(PosixFileInput, EndsEarlyInAFileThatShrinks) {
  const TestFolder folder;
  folder.Put("file", Counting(9000));
  const auto file = PosixFileInput().Open(folder.Of("file"));
  std::filesystem::resize_file(folder.Of("file"), 100);
  EXPECT_EQ(ReadFrom(*file, 9000).size(), 100U);
}

TEST(PosixFileInput, ClosesItsFiles) {
  const TestFolder folder;
  folder.Put("file", Counting(10));
  std::filesystem::create_directory(folder.Of("folder"));
  const auto open = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
  };
  const auto before = open();
  for (int i = 0; i < 20; ++i) {
    PosixFileInput().Open(folder.Of("file"));
    PosixFileInput().Open(folder.Of("folder"));
  }
  EXPECT_EQ(open(), before);
}

TEST(LocalTimeOfDay, IsWithinADay) {
  const double now = LocalSecondsSinceMidnight();
  EXPECT_GE(now, 0);
  EXPECT_LT(now, 86401);
}

}  // namespace
}  // namespace tonalith::platform
