// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/action_run.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <vector>

#include "stress/action.h"
#include "stress/stress_session.h"
#include "stress/work_folder.h"

namespace tonalith::stress {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Far above the longest action on a busy system.
constexpr std::chrono::seconds kTimeout(90);

struct Outcome {
  /// Empty if no rule is violated.
  std::string finding;
  std::vector<Action> actions;
  std::string summary;
  int runs = 0;

  [[nodiscard]] std::string Rule() const { return finding.substr(0, finding.find(':')); }
};

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::uintmax_t SizeOf(const fs::path& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  return error ? 0 : size;
}

/// The status of a process that has ended; nullopt if it was killed after the timeout.
std::optional<int> WaitFor(pid_t process, const fs::path& journal) {
  std::uintmax_t size = 0;
  auto latest = Clock::now();
  int status = 0;
  while (::waitpid(process, &status, WNOHANG) == 0) {
    // Polls: the journal of the process shows its progress.
    ::usleep(5000);
    if (const std::uintmax_t now = SizeOf(journal); now != size) {
      size = now;
      latest = Clock::now();
    }
    if (Clock::now() - latest < kTimeout) continue;
    ::kill(process, SIGKILL);
    ::waitpid(process, &status, 0);
    return std::nullopt;
  }
  return status;
}

/// The finding of a process that has ended; empty if there is none.
std::string FindingOf(const std::optional<int>& status, const WorkPaths& paths) {
  if (!status) return "standstill: no action began for " + std::to_string(kTimeout.count()) + " s";
  if (WIFSIGNALED(*status)) return std::string("crash: ") + ::strsignal(WTERMSIG(*status));
  const int code = WEXITSTATUS(*status);
  if (code == exit_code::kDone || code == exit_code::kClosed) return {};
  if (code != exit_code::kFound) return "crash: exit code " + std::to_string(code);
  std::istringstream text(ContentOf(paths.FindingFile()));
  std::string line;
  std::getline(text, line);
  std::string finding;
  while (std::getline(text, line)) finding += (finding.empty() ? "" : " | ") + line;
  return finding;
}

/// Runs random actions if `script` is empty.
Outcome RunScript(const Options& options, const std::vector<Action>& script) {
  const WorkFolder folder(options.stage);
  folder.AddBrokenPacks();
  const WorkPaths& paths = folder.Paths();
  const fs::path scriptFile = paths.root / "script.txt";
  if (!script.empty()) {
    const Journal file(scriptFile.string());
    for (const Action& action : script) file.Write(action);
  }
  Outcome outcome;
  const auto begin = Clock::now();
  for (bool isOver = false; !isOver; ++outcome.runs) {
    const auto spent = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin).count();
    const pid_t process = folder.Start({"live", std::to_string(options.seed), std::to_string(outcome.runs),
                                        std::to_string(outcome.actions.size()), std::to_string(options.actions),
                                        std::to_string(std::max<long>(1, options.seconds - spent)),
                                        script.empty() ? "-" : scriptFile.string()});
    const std::optional<int> status = WaitFor(process, paths.JournalFile());
    outcome.actions = ReadActions(paths.JournalFile().string());
    outcome.finding = FindingOf(status, paths);
    isOver = !outcome.finding.empty() || WEXITSTATUS(*status) == exit_code::kDone;
  }
  outcome.summary = ContentOf(paths.SummaryFile());
  return outcome;
}

fs::path WriteFinding(const Options& options, const Outcome& outcome, const std::string& kind) {
  fs::path path = options.out / ("stress-" + std::to_string(options.seed) + "-" +
                                 std::to_string(outcome.actions.size()) + kind + ".txt");
  std::ofstream file(path, std::ios::binary);
  file << "# " << outcome.finding << "\n# seed " << options.seed << ", action " << outcome.actions.size() << "\n";
  for (const Action& action : outcome.actions) file << action.Line() << "\n";
  return path;
}

std::vector<Action> Without(const std::vector<Action>& actions, std::size_t begin, std::size_t count) {
  std::vector<Action> fewer(actions.begin(), actions.begin() + static_cast<std::ptrdiff_t>(begin));
  const std::size_t end = std::min(actions.size(), begin + count);
  fewer.insert(fewer.end(), actions.begin() + static_cast<std::ptrdiff_t>(end), actions.end());
  return fewer;
}

}  // namespace

int RunActions(const Options& options) {
  const bool isReplay = options.mode == Options::Mode::kReplay;
  const auto begin = Clock::now();
  const Outcome outcome = RunScript(options, isReplay ? ReadActions(options.script.string()) : std::vector<Action>());
  const double spent = std::chrono::duration<double>(Clock::now() - begin).count();
  std::cout << outcome.actions.size() << " actions in " << outcome.runs << " lives, seed " << options.seed << ", "
            << static_cast<int>(spent) << " s\n"
            << outcome.summary;
  if (outcome.finding.empty()) return exit_code::kDone;
  std::cout << "FOUND at action " << outcome.actions.size() << ": " << outcome.finding << "\n"
            << "The actions are in " << WriteFinding(options, outcome, isReplay ? "-replayed" : "").string() << "\n";
  const std::size_t shown = std::min<std::size_t>(outcome.actions.size(), 12);
  for (auto action = outcome.actions.end() - static_cast<std::ptrdiff_t>(shown); action != outcome.actions.end();
       ++action) {
    std::cout << "  " << action->Line() << "\n";
  }
  return exit_code::kFound;
}

int RunShrink(const Options& options) {
  const auto end = Clock::now() + std::chrono::seconds(options.seconds);
  Outcome shortest = RunScript(options, ReadActions(options.script.string()));
  if (shortest.finding.empty()) {
    std::cout << "These actions find nothing.\n";
    return exit_code::kDone;
  }
  for (std::size_t part = shortest.actions.size() / 2; part > 0 && Clock::now() < end; part /= 2) {
    for (std::size_t at = 0; at < shortest.actions.size() && Clock::now() < end;) {
      const std::vector<Action> script = Without(shortest.actions, at, part);
      const Outcome fewer = script.empty() ? Outcome() : RunScript(options, script);
      if (fewer.Rule() != shortest.Rule()) {
        at += part;
        continue;
      }
      shortest = fewer;
      std::cout << shortest.actions.size() << " actions find: " << shortest.finding << std::endl;
    }
  }
  std::cout << WriteFinding(options, shortest, "-shorter").string() << "\n";
  return exit_code::kFound;
}

}  // namespace tonalith::stress
