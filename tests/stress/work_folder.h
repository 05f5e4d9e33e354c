// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A copy of the stage in a folder for temporary files, with this very program in the place of `tonalith`, so that the
// program's own start finds it as its folder; a home of its own beside it; packs that are broken. Gone with the
// destructor. Parent process; what the system refuses throws std::runtime_error or std::filesystem::filesystem_error.

#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tonalith::stress {

/// The places, from either side: the parent knows the root, a life finds it above its own folder.
struct Places {
  std::filesystem::path root;

  [[nodiscard]] std::filesystem::path Stage() const { return root / "stage"; }
  [[nodiscard]] std::filesystem::path Program() const { return Stage() / "tonalith"; }
  [[nodiscard]] std::filesystem::path Library() const { return Stage() / "TonalithDB97.mdb"; }
  [[nodiscard]] std::filesystem::path Packs() const { return Stage() / "DataPacks"; }
  [[nodiscard]] std::filesystem::path Home() const { return root / "home"; }
  [[nodiscard]] std::filesystem::path JournalFile() const { return root / "journal.txt"; }
  [[nodiscard]] std::filesystem::path FindingFile() const { return root / "finding.txt"; }
  [[nodiscard]] std::filesystem::path SummaryFile() const { return root / "summary.txt"; }
};

class WorkFolder {
 public:
  explicit WorkFolder(const std::filesystem::path& stage);
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  [[nodiscard]] const Places& Where() const { return places_; }
  void AddBrokenPacks() const;

  /// Starts the program with these arguments, without a screen, sound or desktop. `output`, if any, becomes file 3.
  [[nodiscard]] pid_t Start(const std::vector<std::string>& arguments, int output = -1) const;

 private:
  Places places_;
};

/// Makes a pack of that many scales, whose names begin with `word`, and a type of its own.
void MakePack(const std::filesystem::path& path, const std::string& word, int scales, int type);

}  // namespace tonalith::stress
