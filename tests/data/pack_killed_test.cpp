// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A program that is killed during an import, a save or a deletion: the next start finds the state before or after it,
// and everything that was finished earlier. Killed at every write, and at random moments.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>

#include "data/pack_disaster_fixture.h"
#include "data/pack_disk.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

class KilledTest : public DataPackImportTest {
 protected:
  /// Runs `work` repeatedly on the same database, killed one step later each time, until it completes. Returns the
  /// number of kills.
  int KillAtEveryStepOf(const std::function<void()>& work) const {
    const std::string file = jet::ContentOfFile(Main());
    const std::string before = ContentOfDatabase(Main());
    int kills = 0;
    for (;; ++kills) {
      const bool isKilled = IsKilledIn([&] {
        PackDisk disk;
        disk.EndProcessAt(kills + 1);
        work();
      });
      if (!isKilled) break;
      states_.insert(ContentOfDatabase(Main()));
      ExpectSound(Main());
      // An incomplete journal has no effect and remains until the next write.
      fs::remove(Main() + "-journal");
      std::ofstream(Main(), std::ios::binary) << file;
    }
    const std::string after = ContentOfDatabase(Main());
    EXPECT_NE(after, before);
    states_.erase(before);
    states_.erase(after);
    EXPECT_TRUE(states_.empty()) << "neither before nor after: " << *states_.begin();
    return kills;
  }

  mutable std::set<std::string> states_;
};

TEST_F(KilledTest, ImportsAPackCompletelyOrNotAtAll) {
  const std::string pack = MakePack("DataPack_A.mdb", PackOfManyPages(20));
  EXPECT_GT(KillAtEveryStepOf([&] { Install(pack); }), 20);
  EXPECT_EQ(Ask("SELECT count(*) || ' ' || (SELECT count(*) FROM ScaleTypes) FROM Scales"), "24 4");
}

TEST_F(KilledTest, ImportsAJetPackCompletelyOrNotAtAll) {
  const std::string pack = CopyPack(jet::kJet2000, "DataPack_A.mdb");
  EXPECT_GT(KillAtEveryStepOf([&] { Install(pack); }), 5);
  EXPECT_EQ(Ask("SELECT count(*) || ' ' || (SELECT count(*) FROM ScaleTypes) FROM Scales"), "8 3");
}

TEST_F(KilledTest, SavesARecordCompletelyOrNotAtAll) {
  EXPECT_GT(KillAtEveryStepOf([&] {
              RecordSet records;
              records.Open("SELECT * FROM ScalesQuery", program_.Open(), CursorType::kKeyset,
                           LockType::kBatchOptimistic);
              records.SetFieldValue("ScaleName", "Ionian");
              records.SetFieldValue("ScaleDescription", std::string(12'000, 'x'));
              records.UpdateBatch();
            }),
            5);
  EXPECT_EQ(Ask("SELECT ScaleName || length(ScaleDescription) FROM Scales WHERE ScaleID = 1"), "Ionian12000");
}

TEST_F(KilledTest, DeletesARecordCompletelyOrNotAtAll) {
  RunRaw(Main(), "UPDATE Scales SET ScaleDescription = hex(zeroblob(5000)) WHERE ScaleID = 1");
  EXPECT_GT(KillAtEveryStepOf([&] {
              RecordSet records;
              records.Open("SELECT * FROM ScalesQuery", program_.Open(), CursorType::kKeyset,
                           LockType::kBatchOptimistic);
              records.Delete();
            }),
            5);
  EXPECT_EQ(Ask("SELECT count(*) || min(ScaleID) FROM Scales"), "32");
}

/// A child process that reports each finished operation with one letter.
class Worker {
 public:
  explicit Worker(const std::function<void(Worker&)>& work) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
    process_ = ::fork();
    if (process_ == 0) {
      pipe_ = ends[1];
      try {
        work(*this);
      } catch (const std::exception&) {
        Report('!');
      }
      ::_exit(0);
    }
    ::close(ends[1]);
    pipe_ = ends[0];
  }
  ~Worker() { ::close(pipe_); }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  void Report(char finished) const {
    if (::write(pipe_, &finished, 1) != 1) ::_exit(1);
  }
  /// Kills the process and returns its reports.
  std::string Kill() {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    std::string reports;
    for (char report = 0; ::read(pipe_, &report, 1) == 1;) reports += report;
    return reports;
  }

 private:
  pid_t process_ = -1;
  int pipe_ = -1;
};

constexpr int kDescriptionLength = 9000;

// Repeats on one database: import a pack (i), change the name and the description of one of its scales (s), delete
// another one (d).
void WorkRoundAfterRound(Worker& worker, const std::string& main, const std::function<void(int)>& install,
                         int firstRound) {
  const auto connection = std::make_shared<Connection>();
  for (int round = firstRound;; ++round) {
    install(round);
    worker.Report('i');
    if (!connection->IsOpen()) connection->Open(FullConnectionString(main));
    const std::string number = std::to_string(round);
    RecordSet records;
    records.Open("SELECT * FROM ScalesQuery WHERE ScaleName = 'Take " + number + "'", connection, CursorType::kKeyset,
                 LockType::kBatchOptimistic);
    records.SetFieldValue("ScaleName", "Kept " + number);
    records.SetFieldValue("ScaleDescription", std::string(kDescriptionLength, 'x'));
    records.UpdateBatch();
    worker.Report('s');
    records.Close();
    records.Open("SELECT * FROM ScalesQuery WHERE ScaleName = 'Drop " + number + "'", connection, CursorType::kKeyset,
                 LockType::kBatchOptimistic);
    records.Delete();
    worker.Report('d');
  }
}

class KilledAtRandomTest : public DataPackImportTest {
 protected:
  // The pack of round `round`: 40 scales, three of them with unique names.
  void InstallRound(int round) {
    const std::string number = std::to_string(round);
    const std::string pack = Packs() + "DataPack_" + number + ".mdb";
    fs::remove(pack);
    fs::copy_file(template_, pack);
    RunRaw(pack, "UPDATE Scales SET ScaleName = replace(ScaleName, '#', '" + number + "')");
    Install(pack);
  }

  // The number of scales of a round by state.
  [[nodiscard]] std::string StateOf(int round) const {
    const std::string number = "'" + std::to_string(round) + "'";
    return Ask(
        "SELECT count(*) || ' ' || ifnull(sum(ScaleName LIKE 'Take %'), 0) || ifnull(sum(ScaleName LIKE 'Kept "
        "%' AND length(ScaleDescription) = " +
        std::to_string(kDescriptionLength) +
        "), 0) || ifnull(sum(ScaleName LIKE 'Drop %'), 0) FROM Scales "
        "WHERE ScaleName LIKE '% ' || " +
        number);
  }

  std::string template_ = [this] {
    std::string path = program_.Folder() + "/pack.mdb";
    CreateScaleDatabase(path);
    RunRaw(path,
           "INSERT INTO Scales (ScaleName, ScaleTypeID) VALUES ('Take #', 1), ('Drop #', 1);"
           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 38) "
           "INSERT INTO Scales (ScaleName, ScaleTypeID, ScaleDescription) SELECT 'Scale ' || i || ' #', 1, "
           "hex(zeroblob(300)) FROM n");
    return path;
  }();
};

TEST_F(KilledAtRandomTest, KeepsFinishedChangesAndNoPartialOnes) {
  // The states of a round: nothing, imported, saved, deleted.
  const std::array<std::string, 4> states = {"0 000", "40 101", "40 011", "39 010"};
  std::mt19937 random(20);
  int next = 0;
  for (int kill = 0; kill < NumberOfKills(12); ++kill) {
    Worker worker([&](Worker& self) {
      WorkRoundAfterRound(
          self, Main(), [this](int round) { InstallRound(round); }, next);
    });
    // The kill comes at another moment in each round.
    ::usleep(2000 + static_cast<useconds_t>(random() % 60'000));
    const std::string reports = worker.Kill();
    ASSERT_EQ(reports.find('!'), std::string::npos) << reports;
    ContentOfDatabase(Main());
    ExpectSound(Main());
    const int finished = static_cast<int>(reports.size()) / 3;
    for (int round = next; round < next + finished; ++round) ASSERT_EQ(StateOf(round), states[3]) << round;
    // The last round is in the reported state or one step further.
    const std::size_t reported = reports.size() % 3;
    const std::string state = StateOf(next + finished);
    ASSERT_TRUE(state == states.at(reported) || state == states.at(reported + 1)) << state << " after " << reports;
    next += finished + 1;
  }
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales WHERE ScaleID <= 7"), "4") << "what was there before all this";
}

}  // namespace
}  // namespace tonalith::data
