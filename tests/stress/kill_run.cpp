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

/// When to kill: some time after the start, or some time after the beginning of an operation.
struct Moment {
  int operation = 0;
  std::chrono::microseconds after{0};
};

Moment AnyMoment(RandomSource& dice) {
  if (dice.OneIn(2)) return {0, std::chrono::microseconds(dice.Below(400'000))};
  const int longest = dice.OneIn(3) ? 60'000 : 3'000;
  return {dice.Between(1, 8), std::chrono::microseconds(dice.Below(longest))};
}

/// A worker and the reading end of its reports.
class Victim {
 public:
  Victim(const WorkFolder& playground, std::uint64_t seed, const std::string& round) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process_ = playground.Start({"work", std::to_string(seed), round}, ends[1]);
    ::close(ends[1]);
    reports_ = ends[0];
  }
  ~Victim() {
    End();
    ::close(reports_);
  }
  Victim(const Victim&) = delete;
  Victim& operator=(const Victim&) = delete;

  /// The next report; nothing when `end` comes first or there are no more.
  std::optional<std::string> Next(Clock::time_point end) {
    while (text_.find('\n') == std::string::npos) {
      const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - Clock::now());
      pollfd wait{reports_, POLLIN, 0};
      const timespec time{std::max<long>(0, left.count() / 1'000'000),
                          std::max<long>(0, left.count() % 1'000'000 * 1000)};
      if (::ppoll(&wait, 1, &time, nullptr) <= 0) return std::nullopt;
      std::array<char, 4096> piece{};
      const ssize_t size = ::read(reports_, piece.data(), piece.size());
      if (size <= 0) return std::nullopt;
      text_.append(piece.data(), static_cast<std::size_t>(size));
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

/// Follows the reports up to the moment, kills, and takes what was reported until then.
void Kill(Victim& victim, const Moment& moment, KillLog& account) {
  const auto first = victim.Next(Clock::now() + kLongestStart);
  Require(first == "ready", "the program does not start on what a kill has left", first.value_or("no word"));
  auto end = moment.operation == 0 ? Clock::now() + moment.after : Clock::now() + kLongestStart;
  int begun = 0;
  while (const auto report = victim.Next(end)) {
    account.Take(*report);
    if (*report != "done" && ++begun == moment.operation) end = Clock::now() + moment.after;
  }
  victim.End();
  Require(victim.WasAlive(), "the program ended by itself", "before it was killed");
  while (const auto report = victim.Next(Clock::now())) account.Take(*report);
}

/// The library as the next start will find it, opened by the program's own code and by the engine alone, on copies: the
/// files themselves stay as the kill has left them.
Library Examine(const Places& places, long& journals) {
  const fs::path copy = places.root / "copy";
  const fs::path journal = places.Library().string() + "-journal";
  const auto make = [&] {
    fs::remove_all(copy);
    fs::create_directories(copy);
    fs::copy_file(places.Library(), copy / places.Library().filename());
    if (fs::exists(journal)) fs::copy_file(journal, copy / journal.filename());
  };
  if (fs::exists(journal)) ++journals;
  make();
  tests::RecordingMsgBox messages;
  std::make_unique<data::ScaleDatabase>(copy.string(), messages)->OpenShared();
  make();
  const LibraryFile file((copy / places.Library().filename()).string(), LibraryFile::Open::kForWriting);
  const std::string complaint = file.Complaint();
  Require(complaint.empty(), "the library is not sound", complaint);
  return file.Read();
}

}  // namespace

int RunKills(const Options& options) {
  const WorkFolder playground(options.stage);
  const Places& places = playground.Where();
  fs::remove_all(places.Packs());
  fs::create_directories(places.Packs());
  // The first start may renew rows of an earlier version; the kills are judged by the library after that.
  data::RenewShippedRows(places.Library().string());
  KillLog account(LibraryFile(places.Library().string()).Read());
  RandomSource dice(options.seed);
  const auto begin = Clock::now();
  const auto end = begin + std::chrono::seconds(options.seconds);
  long journals = 0;
  int kills = 0;
  try {
    for (; kills < options.times && Clock::now() < end; ++kills) {
      const WorkPack pack{"Pack" + std::to_string(kills), dice.Between(10, 1200), 1000 + kills};
      MakePack(places.Packs() / "DataPack_Work.mdb", pack.word, pack.scales, pack.type);
      account.BeginRound(pack);
      Victim victim(playground, options.seed * 1000 + static_cast<std::uint64_t>(kills), std::to_string(kills));
      Kill(victim, AnyMoment(dice), account);
      account.Settle(Examine(places, journals));
    }
  } catch (const std::exception& finding) {
    const fs::path kept = options.out / ("stress-kill-" + std::to_string(options.seed) + "-" + std::to_string(kills));
    fs::copy(places.Stage(), kept, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    std::cout << "FOUND at kill " << kills << ", seed " << options.seed << ": " << finding.what() << "\n"
              << "The folder is kept as " << kept.string() << "\n";
    return exit_code::kFound;
  }
  const double spent = std::chrono::duration<double>(Clock::now() - begin).count();
  std::cout << kills << " kills, seed " << options.seed << ", " << static_cast<int>(spent) << " s: " << account.done
            << " operations done, " << account.lost + account.kept << " met by a kill (" << account.lost << " undone, "
            << account.kept << " whole), " << journals << " left a journal\n";
  return exit_code::kDone;
}

}  // namespace tonalith::stress
