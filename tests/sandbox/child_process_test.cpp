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

#include "jet/jet_stream.h"
#include "support/failure_of.h"
#include "support/refused_calls.h"
#include "support/temp_folder.h"

namespace tonalith::sandbox {
namespace {

using tests::FailureOf;

using namespace std::chrono_literals;

void Say(int pipe, std::string_view text) {
  if (::write(pipe, text.data(), text.size()) < 0) ::_exit(9);
}

std::string AllOf(ChildProcess& process) {
  std::string text;
  std::array<std::uint8_t, 7> buffer{};
  while (const std::size_t size = process.Read(buffer)) text.append(buffer.begin(), buffer.begin() + size);
  return text;
}

bool HasNoChild() { return ::waitpid(-1, nullptr, WNOHANG) < 0 && errno == ECHILD; }

TEST(ChildProcess, BringsWhatTheWorkWrites) {
  ChildProcess process([](int pipe) { Say(pipe, "twelve notes and a half"); });
  EXPECT_EQ(AllOf(process), "twelve notes and a half");
}

TEST(ChildProcess, LeavesThisOneAliveWhenTheWorkCrashes) {
  for (const int signal : {SIGSEGV, SIGABRT, SIGKILL, SIGFPE}) {
    ChildProcess process([signal](int pipe) {
      Say(pipe, "so far");
      ::raise(signal);
    });
    EXPECT_EQ(AllOf(process), "so far");
  }
  EXPECT_TRUE(HasNoChild());
}

TEST(ChildProcess, SaysWhatTheSystemRefuses) {
  if (!tests::CanRefuseCalls()) GTEST_SKIP() << "this system does not let a process refuse its own calls";
  const auto begun = [] {
    const ChildProcess process([](int) {});
    return std::string("begun");
  };
  EXPECT_EQ(tests::WithoutCalls({__NR_pipe2}, EMFILE, begun), "the system refuses to read it: Too many open files");
  EXPECT_EQ(tests::WithoutCalls({__NR_clone, __NR_clone3}, EAGAIN, begun),
            "the system refuses to read it: Resource temporarily unavailable");
  EXPECT_EQ(tests::WithoutCalls({}, 0, begun), "begun");
}

TEST(ChildProcess, EndsTheWorkThatThrows) {
  ChildProcess process([](int) { throw std::runtime_error("out of tune"); });
  EXPECT_EQ(AllOf(process), "");
}

TEST(ChildProcess, LetsItsUserActWhileItWaitsAndCountsNoneOfThatTime) {
  Limits limits;
  limits.silence = std::chrono::milliseconds(200);
  limits.total = std::chrono::milliseconds(1000);
  int calls = 0;
  ChildProcess process(
      [](int pipe) {
        ::usleep(100'000);
        Say(pipe, "late");
      },
      limits,
      [&] {
        if (++calls == 1) ::usleep(1'200'000);
      });
  EXPECT_EQ(AllOf(process), "late");
  EXPECT_GE(calls, 1);
}

TEST(ChildProcess, ActsAgainAndAgainWhileNothingComes) {
  Limits limits;
  limits.silence = std::chrono::milliseconds(300);
  int calls = 0;
  ChildProcess process([](int) { ::pause(); }, limits, [&] { ++calls; });
  std::array<std::uint8_t, 1> buffer{};
  EXPECT_THROW(process.Read(buffer), core::Failure);
  EXPECT_GE(calls, 3);
}

TEST(ChildProcess, EndsWithWhatItsUserThrowsMeanwhile) {
  {
    ChildProcess process([](int) { ::pause(); }, {}, [] { throw std::runtime_error("enough"); });
    std::array<std::uint8_t, 1> buffer{};
    EXPECT_THROW(process.Read(buffer), std::runtime_error);
  }
  EXPECT_TRUE(HasNoChild());
}

TEST(ChildProcess, GivesUpOnSilence) {
  Limits limits;
  limits.silence = 50ms;
  {
    ChildProcess process([](int) { ::pause(); }, limits);
    EXPECT_EQ(FailureOf([&] { AllOf(process); }).Description(), "reading it does not come to an end");
  }
  EXPECT_TRUE(HasNoChild());
}

TEST(ChildProcess, GivesUpOnWorkThatTalksForEver) {
  Limits limits;
  limits.total = 100ms;
  ChildProcess process(
      [](int pipe) {
        for (;;) Say(pipe, "la");
      },
      limits);
  EXPECT_EQ(FailureOf([&] { AllOf(process); }).Description(), "reading it does not come to an end");
}

TEST(ChildProcess, HoldsTheWorkToItsMemory) {
  Limits limits;
  limits.memory = std::uint64_t{64} << 20;
  ChildProcess process(
      [](int pipe) {
        const std::vector<char> little(std::size_t{4} << 20, 'a');
        Say(pipe, little[0] == 'a' ? "little " : "");
        // Neither malloc nor mmap gives what is above the limit.
        void* much = std::malloc(std::size_t{1} << 30);
        Say(pipe, much == nullptr ? "much refused" : "much given");
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
    Say(pipe, isClosed && ::isatty(STDERR_FILENO) == 0 ? "closed" : "open");
  });
  EXPECT_EQ(AllOf(process), "closed");
  ::close(opened);
}

// The other side of the pipe may say anything.
class NoVisitor : public JetVisitor {
 public:
  void OnObject(const JetObject&) override {}
  void OnTable(const JetTable&) override {}
  void OnRow(std::vector<Value>) override { ++rows; }
  int rows = 0;
};

std::string StreamRefusal(std::vector<std::uint8_t> bytes, std::uint64_t budget = 1 << 20) {
  NoVisitor visitor;
  const auto source = [&](std::span<std::uint8_t> buffer) {
    const std::size_t size = std::min(buffer.size(), bytes.size());
    std::copy_n(bytes.begin(), size, buffer.begin());
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    return size;
  };
  return FailureOf([&] { ReadJetStream(source, budget, visitor); }).Description();
}

TEST(JetStream, ComesBackAsItWasWritten) {
  std::vector<std::uint8_t> bytes;
  class Echo : public NoVisitor {
   public:
    void OnTable(const JetTable& table) override { seen = table; }
    void OnRow(std::vector<Value> values) override { row = std::move(values); }
    JetTable seen;
    std::vector<Value> row;
  } echo;
  JetStreamWriter writer(
      [&](std::span<const std::uint8_t> part) { bytes.insert(bytes.end(), part.begin(), part.end()); });
  const JetTable table = {"T", {{"a", JetContent::kText}, {"b", JetContent::kBytes}, {"c", JetContent::kFraction}}};
  const std::vector<Value> row = {Value(std::string("x\0y", 3)), Value(Bytes(100'000, 7)), Value(-0.5)};
  writer.OnTable(table);
  writer.OnRow(row);
  writer.Finish();
  std::size_t at = 0;
  ReadJetStream(
      [&](std::span<std::uint8_t> buffer) {
        const std::size_t size = std::min({buffer.size(), bytes.size() - at, std::size_t{777}});
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), size, buffer.begin());
        at += size;
        return size;
      },
      bytes.size(), echo);
  EXPECT_EQ(echo.seen, table);
  EXPECT_EQ(echo.row, row);
}

TEST(JetStream, BelievesNothing) {
  const std::string damaged = "it is damaged, and reading it broke off";
  EXPECT_EQ(StreamRefusal({}), damaged);
  EXPECT_EQ(StreamRefusal({'?'}), damaged);
  EXPECT_EQ(StreamRefusal({'R'}), damaged);
  EXPECT_EQ(StreamRefusal({'O', 255, 255, 255, 255, 255, 255, 255, 255}), damaged);
  EXPECT_EQ(StreamRefusal({'O', 3, 0, 0, 0, 0, 0, 0, 0, 'a'}), damaged);
  EXPECT_EQ(StreamRefusal({'T', 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0}), damaged);
  EXPECT_EQ(StreamRefusal({'E', 2, 0, 0, 0, 0, 0, 0, 0, 'n', 'o'}), "no");
}

TEST(JetStream, EndsWithItsBudget) {
  // A table without fields, and its rows for ever.
  std::vector<std::uint8_t> bytes = {'T', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  bytes.insert(bytes.end(), 5000, 'R');
  EXPECT_EQ(StreamRefusal(bytes, 1000), "it is damaged, and reading it broke off");
}

}  // namespace
}  // namespace tonalith::sandbox
