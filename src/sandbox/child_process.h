// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs a parser of untrusted input in a child process, so that a crash, an endless loop or excessive memory use does
// not affect the program. The child writes its result into a pipe; the parent reads it with a time limit; memory and
// processor time of the child are limited. The child inherits no other open file, and its standard streams go to
// /dev/null. The destructor kills the child if necessary and waits for it. One thread. Throws core::Failure.

#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace tonalith::sandbox {

/// Short enough to keep a window responsive while it waits.
inline constexpr std::chrono::milliseconds kWaitStep{20};

struct Limits {
  /// The maximum time without a byte, and the maximum total time.
  std::chrono::milliseconds silence{10'000};
  std::chrono::milliseconds total{120'000};
  /// Bytes of memory, in addition to those that the program uses.
  std::uint64_t memory = std::uint64_t{256} << 20;
};

class ChildProcess {
 public:
  /// `work` receives the write end of the pipe. An exception in it ends the child as a crash does. Read calls
  /// `whileWaiting` immediately and then about every kWaitStep; its time does not count towards the limits, and its
  /// exceptions end the reading.
  explicit ChildProcess(const std::function<void(int pipe)>& work, const Limits& limits = {},
                        std::function<void()> whileWaiting = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Waits for bytes and returns their number; 0 at the end. Throws if a limit is exceeded.
  std::size_t Read(std::span<std::uint8_t> buffer);

 private:
  void WaitForBytes();
  std::chrono::steady_clock::duration CallWhileWaiting();

  Limits limits_;
  std::function<void()> whileWaiting_;
  std::chrono::steady_clock::time_point start_;
  std::chrono::steady_clock::time_point lastCall_;
  pid_t process_ = -1;
  int pipe_ = -1;
};

/// For the child: writes all the bytes into the pipe. Throws if the parent has closed its end.
void WriteAll(int pipe, std::span<const std::uint8_t> bytes);

}  // namespace tonalith::sandbox
