// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs a step in a child process in which the system refuses some calls, as if a resource were missing or exhausted.
// Only the step may run in the child.

#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <exception>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace tonalith::tests {

inline constexpr int kCannotRefuse = 77;

/// A system call: its number and, if not every use of it is meant, its second argument. The sanitizers make pipes
/// without flags to find out whether memory is readable; a test names the flags of the program's own pipes.
struct RefusedCall {
  RefusedCall(long callNumber) : number(callNumber) {}  // NOLINT(google-explicit-constructor)
  RefusedCall(long callNumber, unsigned flags) : number(callNumber), secondArgument(flags) {}

  long number;
  std::optional<unsigned> secondArgument;
};

/// All later system calls of this kind fail with `error`. Cannot be undone.
inline bool RefuseCalls(std::initializer_list<RefusedCall> calls, int error) {
  const sock_filter loadNumber = BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr));
  // The lower half of the argument on a little-endian machine.
  const sock_filter loadArgument = BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[1]));
  const sock_filter refuse = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<unsigned>(error));
  std::vector<sock_filter> steps;
  for (const RefusedCall& call : calls) {
    const unsigned char rest = call.secondArgument ? 3 : 1;
    steps.push_back(loadNumber);
    steps.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call.number), 0, rest));
    if (call.secondArgument) {
      steps.push_back(loadArgument);
      steps.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, *call.secondArgument, 0, 1));
    }
    steps.push_back(refuse);
  }
  steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog program{static_cast<unsigned short>(steps.size()), steps.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
}

/// The result of `step`, or the text of its exception, with these calls refused; empty if the system does not support
/// this.
inline std::string WithoutCalls(std::initializer_list<RefusedCall> calls, int error,
                                const std::function<std::string()>& step) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) return "no pipe";
  const pid_t process = ::fork();
  if (process == 0) {
    if (!RefuseCalls(calls, error)) ::_exit(kCannotRefuse);
    std::string text;
    try {
      text = step();
    } catch (const std::exception& failure) {
      text = failure.what();
    }
    const bool isWritten = ::write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::_exit(isWritten ? 0 : 1);
  }
  ::close(ends[1]);
  std::array<char, 1024> text{};
  const ssize_t size = ::read(ends[0], text.data(), text.size());
  ::close(ends[0]);
  int status = 0;
  ::waitpid(process, &status, 0);
  if (WIFEXITED(status) && WEXITSTATUS(status) == kCannotRefuse) return "";
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return "the process ended badly";
  return {text.data(), static_cast<std::size_t>(size > 0 ? size : 0)};
}

/// Whether this system supports it.
inline bool CanRefuseCalls() {
  return WithoutCalls({}, 0, [] { return "can"; }) == "can";
}

}  // namespace tonalith::tests
