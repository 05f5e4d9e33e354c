// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Imports a pack of 100,000 new scales into the shipped database, compared with one INSERT ... SELECT of the same rows
// into the same tables and indexes in one transaction; imports the pack again; and measures the memory of the first
// import.

#include <SQLiteCpp/SQLiteCpp.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "data/data_pack_import.h"
#include "measuring.h"
#include "support/recording_msg_box.h"

namespace {

using namespace tonalith;
namespace fs = std::filesystem;

class NobodysWindow : public data::DataPackObserver {
 public:
  void DataPackDone() override {}
  void ImportProgress(const std::string& /*path*/, std::int64_t /*rows*/) override {}
};

/// A program folder with the shipped database and the pack.
struct Place {
  explicit Place(fs::path shippedDatabase) : shipped(std::move(shippedDatabase)) {
    bench::MakeLibrary(pack, bench::Scales(), "New scale ");
    fs::current_path(folder.Path());
    Renew();
  }
  void Renew() const { fs::copy_file(shipped, database, fs::copy_options::overwrite_existing); }
  void Import() const {
    tests::RecordingMsgBox box;
    NobodysWindow window;
    data::DataPackImport import(folder.Path().string(), box, window);
    import.ImportDataPack(pack.string());
    if (box.Texts().rfind("Imported data pack: ", 0) == 0) return;
    std::printf("%s\n", box.Texts().c_str());
    std::abort();
  }
  /// Inserts like the import, but without checking whether a scale exists.
  void InsertSelect() const {
    SQLite::Database db(database.string(), SQLite::OPEN_READWRITE);
    db.exec("PRAGMA cache_size = -16384");
    db.exec("ATTACH '" + pack.string() + "' AS pack");
    db.exec(
        "BEGIN IMMEDIATE;"
        "INSERT INTO ScaleTypes SELECT * FROM pack.ScaleTypes p"
        "  WHERE NOT EXISTS (SELECT 1 FROM main.ScaleTypes m WHERE m.ScaleTypeID = p.ScaleTypeID);"
        "INSERT INTO Scales(ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, Chord, Sort)"
        "  SELECT ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, Chord, Sort FROM pack.Scales;"
        "COMMIT");
  }
  [[nodiscard]] int Scales() const {
    SQLite::Database db(database.string(), SQLite::OPEN_READONLY);
    return db.execAndGet("SELECT count(*) FROM Scales").getInt();
  }

  bench::Folder folder;
  fs::path shipped;
  fs::path database = folder.Path() / "TonalithDB97.mdb";
  fs::path pack = folder.Path() / "DataPack_Large.mdb";
};

long StatusKibibytes(std::string_view field) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(field)) return std::strtol(line.c_str() + field.size(), nullptr, 10);
  }
  return 0;
}

/// Runs in a child process, whose memory use is small.
void ReportMemory(const Place& place) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    malloc_trim(0);
    // Resets the peak resident size to the current one.
    std::ofstream("/proc/self/clear_refs") << "5" << std::flush;
    const long idle = StatusKibibytes("VmRSS:");
    place.Import();
    const double growth = static_cast<double>(StatusKibibytes("VmHWM:") - idle) / 1024;
    bench::Tell({"highest memory above idle while importing", growth, 64, "MiB", "", ""});
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
}

}  // namespace

int main(int /*argc*/, char** argv) {
  const Place place(fs::absolute(fs::path(argv[0])).parent_path() / "TonalithDB97.mdb");
  const auto renew = [&] { place.Renew(); };
  ReportMemory(place);
  renew();
  const int before = place.Scales();
  place.Import();
  const int imported = place.Scales() - before;
  renew();
  place.InsertSelect();
  if (imported != bench::Scales() || place.Scales() - before != bench::Scales()) std::abort();
  const bench::Contender first{"import of a pack of 100,000 new scales", [&] { place.Import(); }, renew};
  bench::Compare(first, {"INSERT ... SELECT of the same rows", [&] { place.InsertSelect(); }, renew}, bench::Runs(9),
                 3);
  bench::Compare({"the same pack again", [&] { place.Import(); }}, {"the first time", [&] { place.Import(); }, renew},
                 bench::Runs(9), 1.5);
  return 0;
}
