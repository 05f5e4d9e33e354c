// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "sandbox/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <system_error>
#include <utility>

#include "core/failure.h"
#include "sandbox/messages.h"

namespace tonalith::sandbox {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

core::Failure SystemFailure() {
  return core::Failure::Unspecified({MessageId::kSystemRefused, std::generic_category().message(errno)});
}

// Address space in use. A sanitizer build reserves terabytes at start, so the limit is added to the current use.
std::uint64_t MemoryInUse() {
  std::uint64_t pages = 0;
  FILE* file = std::fopen("/proc/self/statm", "re");
  if (file == nullptr) return 0;
  std::array<char, 32> text{};
  if (std::fgets(text.data(), static_cast<int>(text.size()), file) != nullptr) {
    pages = std::strtoull(text.data(), nullptr, 10);
  }
  std::fclose(file);
  return pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
}

void Limit(__rlimit_resource resource, rlim_t value) {
  rlimit limit{};
  if (::getrlimit(resource, &limit) != 0) return;
  limit.rlim_cur = std::min(value, limit.rlim_max);
  ::setrlimit(resource, &limit);
}

void CloseAllBut(int pipe) {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    const int devNull = ::open("/dev/null", O_RDWR);
    ::dup2(devNull, stream);
    if (devNull > STDERR_FILENO) ::close(devNull);
  }
  if (pipe > STDERR_FILENO + 1) ::close_range(STDERR_FILENO + 1, static_cast<unsigned>(pipe) - 1, 0);
  ::close_range(static_cast<unsigned>(pipe) + 1, ~0U, 0);
}

// Never returns: the copy of the program must not run on.
[[noreturn]] void RunWork(const std::function<void(int)>& work, int pipe, const Limits& limits) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  for (const int signal : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGPIPE, SIGXCPU, SIGTERM, SIGINT, SIGALRM}) {
    ::signal(signal, SIG_DFL);
  }
  if (pipe <= STDERR_FILENO) pipe = ::fcntl(pipe, F_DUPFD, STDERR_FILENO + 1);
  CloseAllBut(pipe);
  const std::uint64_t inUse = MemoryInUse();
  if (inUse > 0) Limit(RLIMIT_AS, inUse + limits.memory);
  Limit(RLIMIT_CORE, 0);
  Limit(RLIMIT_FSIZE, 0);
  Limit(RLIMIT_CPU, static_cast<rlim_t>(limits.total.count() / 1000 + 1));
  try {
    work(pipe);
  } catch (const std::exception&) {
    ::_exit(EXIT_FAILURE);
  }
  ::_exit(EXIT_SUCCESS);
}

}  // namespace

ChildProcess::ChildProcess(const std::function<void(int pipe)>& work, const Limits& limits,
                           std::function<void()> whileWaiting)
    : limits_(limits), whileWaiting_(std::move(whileWaiting)), start_(steady_clock::now()) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw SystemFailure();
  process_ = ::fork();
  if (process_ == 0) RunWork(work, ends[1], limits_);
  ::close(ends[1]);
  pipe_ = ends[0];
  if (process_ < 0) {
    const int error = errno;
    ::close(pipe_);
    errno = error;
    throw SystemFailure();
  }
}

ChildProcess::~ChildProcess() {
  ::close(pipe_);
  ::kill(process_, SIGKILL);
  int status = 0;
  while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
  }
}

// Returns the time that the callback took.
steady_clock::duration ChildProcess::CallWhileWaiting() {
  const auto begin = steady_clock::now();
  if (!whileWaiting_ || begin - lastCall_ < kWaitStep) return {};
  whileWaiting_();
  lastCall_ = steady_clock::now();
  start_ += lastCall_ - begin;
  return lastCall_ - begin;
}

void ChildProcess::WaitForBytes() {
  auto begin = steady_clock::now();
  for (;;) {
    begin += CallWhileWaiting();
    const auto now = steady_clock::now();
    const auto left =
        std::chrono::duration_cast<milliseconds>(std::min(begin + limits_.silence, start_ + limits_.total) - now);
    if (left <= milliseconds::zero()) throw core::Failure::Unspecified(MessageId::kEndless);
    pollfd wait{pipe_, POLLIN, 0};
    const milliseconds step = whileWaiting_ ? std::min(left, kWaitStep) : left;
    const int ready = ::poll(&wait, 1, static_cast<int>(step.count()));
    if (ready > 0) return;
    if (ready < 0 && errno != EINTR) throw SystemFailure();
  }
}

std::size_t ChildProcess::Read(std::span<std::uint8_t> buffer) {
  for (;;) {
    WaitForBytes();
    const ssize_t size = ::read(pipe_, buffer.data(), buffer.size());
    if (size >= 0) return static_cast<std::size_t>(size);
    if (errno != EINTR) throw SystemFailure();
  }
}

void WriteAll(int pipe, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t size = ::write(pipe, bytes.data(), bytes.size());
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) throw core::Failure::Unspecified(MessageId::kReaderGone);
    bytes = bytes.subspan(static_cast<std::size_t>(size));
  }
}

}  // namespace tonalith::sandbox
