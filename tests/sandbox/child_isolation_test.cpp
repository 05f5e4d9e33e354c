// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What a child inherits and may use, and that nothing of it remains. Most tests change their own process first, so they
// do it in an outer child, which starts the tested one.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>

#include "sandbox/child_process.h"
#include "support/failure_of.h"
#include "support/refused_calls.h"

namespace tonalith::sandbox {
namespace {

using namespace std::chrono_literals;

void WriteText(int pipe, const std::string& text) {
  WriteAll(pipe, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

/// What `work` returns in a child.
std::string FromChild(const std::function<std::string()>& work, const Limits& limits = {}) {
  ChildProcess process([&work](int pipe) { WriteText(pipe, work()); }, limits);
  std::string text;
  std::array<std::uint8_t, 64> buffer{};
  while (const std::size_t size = process.Read(buffer)) text.append(buffer.begin(), buffer.begin() + size);
  return text;
}

/// The numbers of the open files of this process.
std::set<int> OpenFiles() {
  std::set<int> files;
  for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd")) {
    files.insert(std::stoi(file.path().filename()));
  }
  // The list itself was open as one of them.
  for (auto file = files.begin(); file != files.end();) file = ::fcntl(*file, F_GETFD) < 0 ? files.erase(file) : ++file;
  return files;
}

std::string Listed(const std::set<int>& files) {
  std::string text;
  for (const int file : files) text += std::to_string(file) + " ";
  return text;
}

/// Whether the child has its standard streams and one further file, the pipe.
std::string HasFourFiles() {
  const std::set<int> files = OpenFiles();
  const bool isThem = files.size() == 4 && *std::next(files.begin(), 2) == STDERR_FILENO;
  return isThem ? "four" : Listed(files);
}

TEST(ChildIsolation, ClosesFilesBelowAndAboveThePipe) {
  const std::string files = FromChild([] {
    std::array<int, 6> low{};
    for (int& file : low) file = ::dup(STDIN_FILENO);
    ::fcntl(STDIN_FILENO, F_DUPFD, 200);
    // The pipe gets the numbers in these gaps.
    ::close(low[1]);
    ::close(low[3]);
    return FromChild(HasFourFiles);
  });
  EXPECT_EQ(files, "four");
}

TEST(ChildIsolation, HasThreeStreamsWhicheverOfThemAreClosedBefore) {
  using Streams = std::set<int>;
  for (const Streams& closed : {Streams{0}, Streams{1}, Streams{2}, Streams{0, 1}, Streams{1, 2}, Streams{0, 1, 2}}) {
    const std::string files = FromChild([&closed] {
      for (const int stream : closed) ::close(stream);
      return FromChild(HasFourFiles);
    });
    EXPECT_EQ(files, "four") << Listed(closed);
  }
}

TEST(ChildIsolation, StandardStreamsCanBeReadAndWritten) {
  const std::string result = FromChild([] {
    char letter = 'x';
    const bool isEmpty = ::read(STDIN_FILENO, &letter, 1) == 0;
    const bool isWritable = ::write(STDOUT_FILENO, &letter, 1) == 1 && ::write(STDERR_FILENO, &letter, 1) == 1;
    return std::string(isEmpty ? "empty " : "full ") + (isWritable ? "writable" : "read-only");
  });
  EXPECT_EQ(result, "empty writable");
}

TEST(ChildIsolation, LeavesNoFileOpenInTheParent) {
  const std::set<int> before = OpenFiles();
  EXPECT_EQ(FromChild([] { return "text"; }), "text");
  EXPECT_EQ(Listed(OpenFiles()), Listed(before));
}

TEST(ChildIsolation, LeavesNoFileOpenWhereNoProcessCanStart) {
  if (!tests::CanRefuseCalls()) GTEST_SKIP() << "this system does not let a process refuse its own calls";
  const auto opened = [] {
    const std::set<int> before = OpenFiles();
    tests::FailureOf([] { FromChild([] { return ""; }); });
    return OpenFiles() == before ? "the same files" : "other files";
  };
  EXPECT_EQ(tests::WithoutCalls({__NR_clone, __NR_clone3}, EAGAIN, opened), "the same files");
}

TEST(ChildIsolation, EverySignalOfACrashHasItsDefaultHandler) {
  constexpr std::array kSignals{SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGPIPE, SIGXCPU, SIGTERM, SIGINT, SIGALRM};
  const std::string inherited = FromChild([&] {
    for (const int signal : kSignals) ::signal(signal, SIG_IGN);
    return FromChild([&] {
      std::string others;
      for (const int signal : kSignals) {
        if (::signal(signal, SIG_DFL) != SIG_DFL) others += std::to_string(signal) + " ";
      }
      return others;
    });
  });
  EXPECT_EQ(inherited, "");
}

TEST(ChildIsolation, MemoryLimitIsAddedToTheMemoryInUse) {
  // So much that an error in the number of pages is larger than what the child adds itself.
  constexpr std::size_t kReserved = std::size_t{512} << 20;
  void* const reserved = ::mmap(nullptr, kReserved, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(reserved, MAP_FAILED);
  Limits limits;
  limits.memory = std::uint64_t{100} << 20;
  const std::string apart = FromChild(
      [&limits] {
        rlimit limit{};
        ::getrlimit(RLIMIT_AS, &limit);
        std::uint64_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        const std::uint64_t inUse = pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
        const std::uint64_t expected = inUse + limits.memory;
        return std::to_string((expected > limit.rlim_cur ? expected - limit.rlim_cur : limit.rlim_cur - expected) >>
                              20);
      },
      limits);
  ::munmap(reserved, kReserved);
  ASSERT_NE(apart, "");
  EXPECT_LE(std::stoull(apart), 16U) << "MiB";
}

TEST(ChildIsolation, LimitsAreNotHigherThanTheSystemPermits) {
  const auto time = [](std::chrono::milliseconds total, rlim_t hard) {
    return FromChild([total, hard] {
      const rlimit lower{hard, hard};
      ::setrlimit(RLIMIT_CPU, &lower);
      Limits limits;
      limits.total = total;
      return FromChild(
          [] {
            rlimit limit{};
            ::getrlimit(RLIMIT_CPU, &limit);
            return std::to_string(limit.rlim_cur) + " " + std::to_string(limit.rlim_max);
          },
          limits);
    });
  };
  EXPECT_EQ(time(20'000ms, 30), "21 30");
  EXPECT_EQ(time(29'999ms, 30), "30 30");
  EXPECT_EQ(time(90'000ms, 30), "30 30");
}

TEST(ChildIsolation, TheDefaultTimeIsTwoMinutes) {
  const std::string seconds = FromChild([] {
    rlimit limit{};
    ::getrlimit(RLIMIT_CPU, &limit);
    return std::to_string(limit.rlim_cur);
  });
  EXPECT_EQ(seconds, "121");
}

TEST(ChildIsolation, CallsBackNotMoreOftenThanItsStep) {
  int calls = 0;
  const auto begin = std::chrono::steady_clock::now();
  {
    ChildProcess process([](int pipe) { WriteText(pipe, std::string(500, 'x')); }, {}, [&calls] { ++calls; });
    std::array<std::uint8_t, 1> buffer{};
    process.Read(buffer);
    EXPECT_GE(calls, 1) << "at once";
    while (process.Read(buffer) > 0) {
    }
  }
  const auto steps = (std::chrono::steady_clock::now() - begin) / kWaitStep;
  EXPECT_LE(calls, steps + 1);
}

TEST(ChildIsolation, ReportsThatItCannotWait) {
  if (!tests::CanRefuseCalls()) GTEST_SKIP() << "this system does not let a process refuse its own calls";
  EXPECT_EQ(tests::WithoutCalls({__NR_poll, __NR_ppoll}, ENOMEM, [] { return FromChild([] { return "text"; }); }),
            "the system refuses to read it: Cannot allocate memory");
}

TEST(ChildIsolation, WritingToAReaderThatIsGoneFails) {
  const auto before = ::signal(SIGPIPE, SIG_IGN);
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  ::close(ends[0]);
  EXPECT_EQ(tests::FailureOf([&] { WriteText(ends[1], "text"); }).Description(), "the reader is gone");
  EXPECT_NO_THROW(WriteText(ends[1], "")) << "nothing to write";
  ::close(ends[1]);
  ::signal(SIGPIPE, before);
}

}  // namespace
}  // namespace tonalith::sandbox
