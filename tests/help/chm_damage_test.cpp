// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Damaged and crafted help files: each is read within the limits or refused, and the program survives.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <random>

#include "core/failure.h"
#include "help/book_fixture.h"
#include "help/chm_file.h"
#include "help/help_search.h"
#include "support/temp_folder.h"

namespace tonalith::help {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr sandbox::Limits kShortLimits{2s, 3s, std::uint64_t{64} << 20};

class DamagedChm : public testing::Test {
 protected:
  /// Reads the bytes as a help file and, on success, all its pages, lists and pictures.
  bool Opens(const std::string& bytes) { return OpensFile(folder_.Write("damaged.chm", bytes)); }

  bool OpensFile(const std::string& path) {
    const auto begin = steady_clock::now();
    bool opens = false;
    try {
      const HelpBook book(ReadChmFile(path, kShortLimits));
      opens = true;
      static_cast<void>(SearchPages(book, {QStringLiteral("string")}));
      for (const std::string& page : book.Pages()) {
        for (const std::string& link : book.Page(page)->links) static_cast<void>(book.Follow(page, link));
      }
    } catch (const core::Failure& failure) {
      EXPECT_FALSE(failure.Description().empty());
    }
    EXPECT_LT(steady_clock::now() - begin, kShortLimits.total + 2s);
    return opens;
  }

  tests::TempFolder folder_;
  const std::string whole_ = BytesOf(BookPath());
};

TEST_F(DamagedChm, CompleteFileOpens) { EXPECT_TRUE(Opens(whole_)); }

TEST_F(DamagedChm, TruncatedFileIsRefused) {
  constexpr std::size_t kStep = 50;
  for (std::size_t size = 0; size < whole_.size(); size += kStep) {
    EXPECT_FALSE(Opens(whole_.substr(0, size))) << size;
  }
  EXPECT_FALSE(Opens(whole_.substr(0, whole_.size() - 1)));
}

TEST_F(DamagedChm, FileWithFurtherBytesAtItsEndOpens) { EXPECT_TRUE(Opens(whole_ + "further bytes")); }

TEST_F(DamagedChm, EmptyOrShortIsRefused) {
  EXPECT_FALSE(Opens(""));
  EXPECT_FALSE(Opens("I"));
  EXPECT_FALSE(Opens("ITSF"));
  EXPECT_FALSE(Opens(std::string(96, '\0')));
}

TEST_F(DamagedChm, NoiseIsRefused) {
  std::mt19937 random(5);
  for (int i = 0; i < 20; ++i) {
    std::string noise(4096, '\0');
    for (char& c : noise) c = static_cast<char>(random());
    EXPECT_FALSE(Opens(noise));
    // With the header of a help file the reader does not stop at the signature.
    EXPECT_FALSE(Opens(whole_.substr(0, 96) + noise));
  }
}

TEST_F(DamagedChm, FolderAndPipeAreRefused) {
  EXPECT_FALSE(OpensFile(folder_.Path().string()));
  const std::string pipe = folder_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(OpensFile(pipe));
}

TEST_F(DamagedChm, HugeSparseFileIsRefused) {
  const std::string path = folder_.Write("damaged.chm", whole_.substr(0, 200));
  std::filesystem::resize_file(path, std::uintmax_t{200} << 20);
  EXPECT_FALSE(OpensFile(path));
  std::filesystem::resize_file(path, std::uintmax_t{40} << 30);
  EXPECT_FALSE(OpensFile(path));
}

/// Sets each group of four bytes of the headers and of the object list to all ones, then to all zeros.
TEST_F(DamagedChm, NumbersInTheHeadersAreValidated) {
  const std::size_t list = whole_.find("PMGL");
  ASSERT_NE(list, std::string::npos);
  for (std::size_t at = 0; at < list + 60; at += 4) {
    for (const char byte : {'\xFF', '\0'}) {
      std::string damaged = whole_;
      damaged.replace(at, 4, 4, byte);
      Opens(damaged);
    }
  }
}

/// The only block of the object list names itself as the next block.
TEST_F(DamagedChm, EndlessObjectListIsRefused) {
  std::string damaged = whole_;
  const std::size_t list = damaged.find("PMGL");
  ASSERT_NE(list, std::string::npos);
  constexpr std::size_t kNextBlock = 16;
  damaged.replace(list + kNextBlock, 4, 4, '\0');
  EXPECT_FALSE(Opens(damaged));
}

class MutatedChm : public DamagedChm, public testing::WithParamInterface<unsigned> {};

/// Two thousand files in total, the same in every run.
TEST_P(MutatedChm, IsReadOrRefused) {
  constexpr int kFiles = 250;
  std::mt19937 random(GetParam());
  int refused = 0;
  for (int i = 0; i < kFiles; ++i) {
    std::string damaged = whole_;
    for (std::uint_fast32_t changes = 1 + random() % 12; changes > 0; --changes) {
      damaged[random() % damaged.size()] = static_cast<char>(random());
    }
    if (!Opens(damaged)) ++refused;
  }
  EXPECT_GT(refused, 0);
  EXPECT_LT(refused, kFiles);
}

INSTANTIATE_TEST_SUITE_P(Seeds, MutatedChm, testing::Range(1U, 9U));

}  // namespace
}  // namespace tonalith::help
