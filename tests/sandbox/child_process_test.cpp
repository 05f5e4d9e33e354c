// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "sandbox/child_process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "support/failure_of.h"
#include "support/refused_calls.h"
#include "support/temp_folder.h"

namespace tonalith::sandbox {
namespace {

using tests::FailureOf;

using namespace std::chrono_literals;

void WriteText(int pipe, std::string_view text) {
  if (::write(pipe, text.data(), text.size()) < 0) ::_exit(9);
}

std::string AllOf(ChildProcess& process) {
  std::string text;
  std::array<std::uint8_t, 7> buffer{};
  while (const std::size_t size = process.Read(buffer)) text.append(buffer.begin(), buffer.begin() + size);
  return text;
}

bool HasNoChild() { return ::waitpid(-1, nullptr, WNOHANG) < 0 && errno == ECHILD; }

TEST(ChildProcess, ReturnsWhatTheChildWrites) {
  ChildProcess process([](int pipe) { WriteText(pipe, "twelve notes and a half"); });
  EXPECT_EQ(AllOf(process), "twelve notes and a half");
}

TEST(ChildProcess, ACrashOfTheChildDoesNotEndTheParent) {
  for (const int signal : {SIGSEGV, SIGABRT, SIGKILL, SIGFPE}) {
    ChildProcess process([signal](int pipe) {
      WriteText(pipe, "so far");
      ::raise(signal);
    });
    EXPECT_EQ(AllOf(process), "so far");
  }
  EXPECT_TRUE(HasNoChild());
}

TEST(ChildProcess, ReportsRefusedSystemCalls) {
  if (!tests::CanRefuseCalls()) GTEST_SKIP() << "this system does not let a process refuse its own calls";
  const auto begun = [] {
    const ChildProcess process([](int) {});
    return std::string("begun");
  };
  EXPECT_EQ(tests::WithoutCalls({{__NR_pipe2, O_CLOEXEC}}, EMFILE, begun),
            "the system refuses to read it: Too many open files");
  EXPECT_EQ(tests::WithoutCalls({__NR_clone, __NR_clone3}, EAGAIN, begun),
            "the system refuses to read it: Resource temporarily unavailable");
  EXPECT_EQ(tests::WithoutCalls({}, 0, begun), "begun");
}

TEST(ChildProcess, EndsAChildThatThrows) {
  ChildProcess process([](int) { throw std::runtime_error("out of tune"); });
  EXPECT_EQ(AllOf(process), "");
}

TEST(ChildProcess, CallsBackWhileWaitingAndDoesNotCountThatTime) {
  Limits limits;
  limits.silence = std::chrono::milliseconds(200);
  limits.total = std::chrono::milliseconds(1000);
  int calls = 0;
  ChildProcess process(
      [](int pipe) {
        // A child that is slower than the first callback.
        ::usleep(100'000);
        WriteText(pipe, "late");
      },
      limits,
      [&] {
        // Longer than the child may take in total.
        if (++calls == 1) ::usleep(1'200'000);
      });
  EXPECT_EQ(AllOf(process), "late");
  EXPECT_GE(calls, 1);
}

TEST(ChildProcess, CallsBackRepeatedlyWhileNothingArrives) {
  Limits limits;
  limits.silence = std::chrono::milliseconds(300);
  int calls = 0;
  ChildProcess process([](int) { ::pause(); }, limits, [&] { ++calls; });
  std::array<std::uint8_t, 1> buffer{};
  EXPECT_THROW(process.Read(buffer), core::Failure);
  EXPECT_GE(calls, 3);
}

TEST(ChildProcess, EndsWithTheExceptionOfTheCallback) {
  {
    ChildProcess process([](int) { ::pause(); }, {}, [] { throw std::runtime_error("enough"); });
    std::array<std::uint8_t, 1> buffer{};
    EXPECT_THROW(process.Read(buffer), std::runtime_error);
  }
  EXPECT_TRUE(HasNoChild());
}

TEST(ChildProcess, TimesOutWithoutBytes) {
  Limits limits;
  limits.silence = 50ms;
  {
    ChildProcess process([](int) { ::pause(); }, limits);
    EXPECT_EQ(FailureOf([&] { AllOf(process); }).Description(), "reading it does not come to an end");
  }
  EXPECT_TRUE(HasNoChild());
}

TEST(ChildProcess, TimesOutForAnEndlessStream) {
  Limits limits;
  limits.total = 100ms;
  ChildProcess process(
      [](int pipe) {
        for (;;) WriteText(pipe, "la");
      },
      limits);
  EXPECT_EQ(FailureOf([&] { AllOf(process); }).Description(), "reading it does not come to an end");
}

TEST(ChildProcess, LimitsTheMemoryOfTheChild) {
  Limits limits;
  limits.memory = std::uint64_t{64} << 20;
  ChildProcess process(
      [](int pipe) {
        const std::vector<char> little(std::size_t{4} << 20, 'a');
        WriteText(pipe, little[0] == 'a' ? "little " : "");
        // Neither malloc nor mmap exceeds the limit.
        void* much = std::malloc(std::size_t{1} << 30);
        WriteText(pipe, much == nullptr ? "much refused" : "much given");
        std::free(much);
      },
      limits);
  const std::string text = AllOf(process);
  EXPECT_TRUE(text == "little much refused" || text == "little ") << text;
}

TEST(ChildProcess, InheritsNothingButThePipe) {
  const int opened = ::open("/dev/null", O_RDONLY);
  ChildProcess process([opened](int pipe) {
    const bool isClosed = ::fcntl(opened, F_GETFD) < 0;
    WriteText(pipe, isClosed && ::isatty(STDERR_FILENO) == 0 ? "closed" : "open");
  });
  EXPECT_EQ(AllOf(process), "closed");
  ::close(opened);
}

}  // namespace
}  // namespace tonalith::sandbox
