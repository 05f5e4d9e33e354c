// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A temporary copy of the stage in which this executable replaces `tonalith`, so that the program uses the copy as its
// folder; a separate home folder; broken packs. Removed by the destructor. Throws std::runtime_error or
// std::filesystem::filesystem_error if the system refuses an operation.

#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tonalith::stress {

/// The paths of a work folder. The child process gets the root from the path of its executable.
struct WorkPaths {
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

  [[nodiscard]] const WorkPaths& Paths() const { return paths_; }
  void AddBrokenPacks() const;

  /// Starts the program with these arguments, without a screen, sound or desktop. `output`, if not negative, becomes
  /// file descriptor 3.
  [[nodiscard]] pid_t Start(const std::vector<std::string>& arguments, int output = -1) const;

 private:
  WorkPaths paths_;
};

/// Creates a pack with one type and `scales` scales. Their names begin with `namePrefix`.
void MakePack(const std::filesystem::path& path, const std::string& namePrefix, int scales, int type);

}  // namespace tonalith::stress
