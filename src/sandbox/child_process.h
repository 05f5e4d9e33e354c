// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Work that reads what a stranger has written, done in a process of its own: whatever the file makes the reading code
// do, this program lives on. The work writes its result into a pipe; this side reads it within limits of time, and the
// system holds the other side to limits of memory and processor time. Nothing that the other side inherits is left open
// but the pipe, and its standard streams are quiet. The destructor ends the process if it is still there and waits for
// it. One thread. Fails by throwing core::Failure.

#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace tonalith::sandbox {

/// Short enough for a window that is handled meanwhile to answer at once.
inline constexpr std::chrono::milliseconds kWaitStep{20};

struct Limits {
  /// The longest time without a byte, and the longest time altogether.
  std::chrono::milliseconds silence{10'000};
  std::chrono::milliseconds total{120'000};
  /// Bytes of memory above what this program has.
  std::uint64_t memory = std::uint64_t{256} << 20;
};

class ChildProcess {
 public:
  /// `work` gets the pipe's end to write into. What it throws ends the process as a crash does. `whileWaiting` is
  /// called from within Read, at once and then every kWaitStep or so. Its own time counts for no limit; what it throws
  /// ends the reading.
  explicit ChildProcess(const std::function<void(int pipe)>& work, const Limits& limits = {},
                        std::function<void()> whileWaiting = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Waits for bytes and gives how many were read; 0 when there are no more. Throws when a limit is exceeded.
  std::size_t Read(std::span<std::uint8_t> buffer);

 private:
  void WaitForBytes();
  std::chrono::steady_clock::duration CallWhileWaiting();

  Limits limits_;
  std::function<void()> whileWaiting_;
  std::chrono::steady_clock::time_point start_;
  std::chrono::steady_clock::time_point told_;
  pid_t process_ = -1;
  int pipe_ = -1;
};

/// For the work: writes all the bytes into the pipe. Throws when nobody reads them any more.
void WriteAll(int pipe, std::span<const std::uint8_t> bytes);

}  // namespace tonalith::sandbox
