// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/kill_run.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <fstream>
#include <iostream>
#include <memory>

#include "data/scale_database.h"
#include "data/shipped_rows.h"
#include "stress/finding.h"
#include "stress/kill_log.h"
#include "stress/stress_session.h"
#include "stress/work_folder.h"
#include "support/recording_msg_box.h"

namespace tonalith::stress {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kLongestStart(60);

/// When to kill: a time after the start (operation 0), or a time after the begin of an operation.
struct Moment {
  int operation = 0;
  std::chrono::microseconds after{0};
};

Moment AnyMoment(RandomSource& random) {
  if (random.OneIn(2)) return {0, std::chrono::microseconds(random.Below(400'000))};
  const int longest = random.OneIn(3) ? 60'000 : 3'000;
  return {random.Between(1, 8), std::chrono::microseconds(random.Below(longest))};
}

/// A worker process and the pipe with its reports.
class WorkerProcess {
 public:
  WorkerProcess(const WorkFolder& folder, std::uint64_t seed, const std::string& round) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process_ = folder.Start({"work", std::to_string(seed), round}, ends[1]);
    ::close(ends[1]);
    reports_ = ends[0];
  }
  ~WorkerProcess() {
    End();
    ::close(reports_);
  }
  WorkerProcess(const WorkerProcess&) = delete;
  WorkerProcess& operator=(const WorkerProcess&) = delete;

  /// Returns nullopt after the time `end`, and if there are no more reports.
  std::optional<std::string> Next(Clock::time_point end) {
    while (text_.find('\n') == std::string::npos) {
      const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - Clock::now());
      pollfd wait{reports_, POLLIN, 0};
      const timespec time{std::max<long>(0, left.count() / 1'000'000),
                          std::max<long>(0, left.count() % 1'000'000 * 1000)};
      if (::ppoll(&wait, 1, &time, nullptr) <= 0) return std::nullopt;
      std::array<char, 4096> buffer{};
      const ssize_t size = ::read(reports_, buffer.data(), buffer.size());
      if (size <= 0) return std::nullopt;
      text_.append(buffer.data(), static_cast<std::size_t>(size));
    }
    const std::size_t line = text_.find('\n');
    std::string report = text_.substr(0, line);
    text_.erase(0, line + 1);
    return report;
  }

  void End() {
    if (process_ < 0) return;
    ::kill(process_, SIGKILL);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    wasAlive_ = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }
  [[nodiscard]] bool WasAlive() const { return wasAlive_; }

 private:
  pid_t process_ = -1;
  int reports_ = -1;
  std::string text_;
  bool wasAlive_ = false;
};

/// Reads the reports until the moment, kills the worker and reads its remaining reports.
void Kill(WorkerProcess& worker, const Moment& moment, KillLog& log) {
  const auto first = worker.Next(Clock::now() + kLongestStart);
  Require(first == "ready", "the program does not start on what a kill has left", first.value_or("no word"));
  auto end = moment.operation == 0 ? Clock::now() + moment.after : Clock::now() + kLongestStart;
  int begun = 0;
  while (const auto report = worker.Next(end)) {
    log.AddReport(*report);
    if (*report != "done" && ++begun == moment.operation) end = Clock::now() + moment.after;
  }
  worker.End();
  Require(worker.WasAlive(), "the program ended by itself", "before it was killed");
  while (const auto report = worker.Next(Clock::now())) log.AddReport(*report);
}

/// Reads the library as the next start would, with the program's code and with SQLite alone. Works on copies, so that
/// the next start finds the files as the kill left them.
Library ReadCopy(const WorkPaths& paths, long& journals) {
  const fs::path copy = paths.root / "copy";
  const fs::path journal = paths.Library().string() + "-journal";
  const auto make = [&] {
    fs::remove_all(copy);
    fs::create_directories(copy);
    fs::copy_file(paths.Library(), copy / paths.Library().filename());
    if (fs::exists(journal)) fs::copy_file(journal, copy / journal.filename());
  };
  if (fs::exists(journal)) ++journals;
  make();
  tests::RecordingMsgBox messages;
  std::make_unique<data::ScaleDatabase>(copy.string(), messages)->OpenShared();
  make();
  const LibraryFile file((copy / paths.Library().filename()).string(), LibraryFile::Open::kForWriting);
  const std::string complaint = file.IntegrityErrors();
  Require(complaint.empty(), "the library is not sound", complaint);
  return file.Read();
}

}  // namespace

int RunKills(const Options& options) {
  const WorkFolder folder(options.stage);
  const WorkPaths& paths = folder.Paths();
  fs::remove_all(paths.Packs());
  fs::create_directories(paths.Packs());
  // The first start may update rows of an earlier version: the comparison starts after that.
  data::RenewShippedRows(paths.Library().string());
  KillLog log(LibraryFile(paths.Library().string()).Read());
  RandomSource random(options.seed);
  const auto begin = Clock::now();
  const auto end = begin + std::chrono::seconds(options.seconds);
  long journals = 0;
  int kills = 0;
  try {
    for (; kills < options.times && Clock::now() < end; ++kills) {
      const WorkPack pack{"Pack" + std::to_string(kills), random.Between(10, 1200), 1000 + kills};
      MakePack(paths.Packs() / "DataPack_Work.mdb", pack.namePrefix, pack.scales, pack.type);
      log.BeginRound(pack);
      WorkerProcess worker(folder, options.seed * 1000 + static_cast<std::uint64_t>(kills), std::to_string(kills));
      Kill(worker, AnyMoment(random), log);
      log.CheckLibrary(ReadCopy(paths, journals));
    }
  } catch (const std::exception& finding) {
    const fs::path copy = options.out / ("stress-kill-" + std::to_string(options.seed) + "-" + std::to_string(kills));
    fs::copy(paths.Stage(), copy, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    std::cout << "FOUND at kill " << kills << ", seed " << options.seed << ": " << finding.what() << "\n"
              << "The folder is kept as " << copy.string() << "\n";
    return exit_code::kFound;
  }
  const double spent = std::chrono::duration<double>(Clock::now() - begin).count();
  std::cout << kills << " kills, seed " << options.seed << ", " << static_cast<int>(spent) << " s: " << log.done
            << " operations done, " << log.rolledBack + log.completed << " met by a kill (" << log.rolledBack
            << " undone, " << log.completed << " whole), " << journals << " left a journal\n";
  return exit_code::kDone;
}

}  // namespace tonalith::stress
