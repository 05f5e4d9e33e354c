// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "sandbox/child_process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
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
    WriteText(pipe, ::fcntl(opened, F_GETFD) < 0 ? "closed" : "open");
    struct stat null {};
    ::stat("/dev/null", &null);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      struct stat file {};
      const bool isNull = ::fstat(stream, &file) == 0 && file.st_rdev == null.st_rdev;
      WriteText(pipe, isNull ? " null" : " inherited");
    }
  });
  EXPECT_EQ(AllOf(process), "closed null null null");
  ::close(opened);
}

TEST(ChildProcess, WorksWhereItsPipeHasTheNumberOfAStandardStream) {
  const std::array<int, 2> kept{::dup(STDIN_FILENO), ::dup(STDOUT_FILENO)};
  ::close(STDIN_FILENO);
  ::close(STDOUT_FILENO);
  {
    ChildProcess process([](int pipe) { WriteText(pipe, "read"); });
    EXPECT_EQ(AllOf(process), "read");
  }
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO}) {
    const int copy = kept.at(static_cast<std::size_t>(stream));
    ::dup2(copy, stream);
    ::close(copy);
  }
}

TEST(ChildProcess, LimitsFilesAndProcessorTimeOfTheChild) {
  Limits limits;
  limits.total = 7500ms;
  ChildProcess process(
      [](int pipe) {
        for (const auto resource : {RLIMIT_CORE, RLIMIT_FSIZE, RLIMIT_CPU}) {
          rlimit limit{};
          ::getrlimit(resource, &limit);
          WriteText(pipe, std::to_string(limit.rlim_cur) + " ");
        }
      },
      limits);
  EXPECT_EQ(AllOf(process), "0 0 8 ");
}

TEST(ChildProcess, LimitsNoMemoryWhereTheMemoryInUseIsUnknown) {
  if (!tests::CanRefuseCalls()) GTEST_SKIP() << "this system does not let a process refuse its own calls";
  rlimit before{};
  ::getrlimit(RLIMIT_AS, &before);
  const auto given = [before] {
    Limits limits;
    limits.memory = 1;
    ChildProcess process(
        [before](int pipe) {
          rlimit limit{};
          ::getrlimit(RLIMIT_AS, &limit);
          WriteText(pipe, limit.rlim_cur == before.rlim_cur ? "no other limit" : "a limit");
        },
        limits);
    return AllOf(process);
  };
  EXPECT_EQ(given(), "a limit");
  EXPECT_EQ(tests::WithoutCalls({__NR_openat}, EACCES, given), "no other limit");
}

TEST(ChildProcess, HasTheDefaultSignalHandlers) {
  const auto before = ::signal(SIGTERM, SIG_IGN);
  ChildProcess process(
      [](int pipe) { WriteText(pipe, ::signal(SIGTERM, SIG_DFL) == SIG_DFL ? "default" : "inherited"); });
  EXPECT_EQ(AllOf(process), "default");
  ::signal(SIGTERM, before);
}

TEST(ChildProcess, IsKilledWithItsParent) {
  // The child of a process that ends becomes a child of this one.
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  const pid_t parent = ::fork();
  if (parent == 0) {
    ChildProcess process([](int pipe) {
      const pid_t self = ::getpid();
      WriteAll(pipe, {reinterpret_cast<const std::uint8_t*>(&self), sizeof self});
      // Ends a child that survives its parent.
      ::alarm(5);
      ::pause();
    });
    pid_t child = 0;
    process.Read({reinterpret_cast<std::uint8_t*>(&child), sizeof child});
    ::_exit(::write(ends[1], &child, sizeof child) == sizeof child ? 0 : 1);
  }
  ::close(ends[1]);
  pid_t child = 0;
  EXPECT_EQ(::read(ends[0], &child, sizeof child), static_cast<ssize_t>(sizeof child));
  ::close(ends[0]);
  ::waitpid(parent, nullptr, 0);
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
  ::prctl(PR_SET_CHILD_SUBREAPER, 0);
}

TEST(ChildProcess, SignalsInterruptNeitherWritingNorReading) {
  constexpr std::size_t kBytes = 200'000;
  const auto interrupt = [] {
    struct sigaction action {};
    action.sa_handler = [](int /*signal*/) {};
    ::sigaction(SIGALRM, &action, nullptr);
    constexpr itimerval kOften{{0, 2000}, {0, 2000}};
    ::setitimer(ITIMER_REAL, &kOften, nullptr);
  };
  ChildProcess process([&](int pipe) {
    interrupt();
    WriteAll(pipe, std::vector<std::uint8_t>(kBytes, 'a'));
    // The reader waits meanwhile.
    for (int i = 0; i < 20; ++i) ::pause();
  });
  // The pipe is full meanwhile, so that the signals find the child waiting.
  for (int i = 0; i < 20; ++i) ::usleep(2000);
  interrupt();
  EXPECT_EQ(AllOf(process).size(), kBytes);
  ::setitimer(ITIMER_REAL, nullptr, nullptr);
  ::signal(SIGALRM, SIG_DFL);
}

}  // namespace
}  // namespace tonalith::sandbox
