// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "cli/program_files.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include "core/text.h"
#include "data/scale_database.h"

namespace tonalith::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPackPrefix = "DataPack_";
constexpr std::string_view kPackEnding = ".mdb";

bool HasLibrary(const fs::path& folder) {
  std::error_code error;
  return fs::exists(folder / data::kDatabaseFileName, error);
}

fs::path FindAppFolder(const ProgramFolders& folders) {
  const fs::path shared = folders.program.parent_path() / "share" / "tonalith";
  const bool isInstalled = !HasLibrary(folders.program) && HasLibrary(shared);
  if (!isInstalled && ::access(folders.program.c_str(), W_OK | X_OK) == 0) return folders.program;
  fs::path user = folders.userData / "tonalith";
  if (!folders.userData.empty() && HasLibrary(user)) return user;
  return isInstalled ? shared : folders.program;
}

bool IsPackName(std::string_view name) {
  return name.size() >= kPackPrefix.size() + kPackEnding.size() && name.starts_with(kPackPrefix) &&
         name.ends_with(kPackEnding);
}

}  // namespace

ProgramFolders FindProgramFolders() {
  std::error_code error;
  ProgramFolders folders;
  folders.program = fs::read_symlink("/proc/self/exe", error).parent_path();
  const auto variable = [](const char* name) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): there is one thread
    return value == nullptr ? fs::path() : fs::path(value);
  };
  // A relative path in this variable is invalid.
  if (const fs::path home = variable("XDG_DATA_HOME"); home.is_absolute()) {
    folders.userData = home;
  } else if (const fs::path user = variable("HOME"); user.is_absolute()) {
    folders.userData = user / ".local" / "share";
  }
  return folders;
}

ProgramFiles FindProgramFiles(const ProgramFolders& folders) {
  const fs::path folder = FindAppFolder(folders);
  ProgramFiles files{(folder / data::kDatabaseFileName).string(), {}};
  std::error_code error;
  for (auto entry = fs::directory_iterator(folder / "DataPacks", error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    std::error_code vanished;
    const fs::path& path = entry->path();
    if (IsPackName(path.filename().string()) && entry->is_regular_file(vanished)) files.packs.push_back(path.string());
  }
  std::sort(files.packs.begin(), files.packs.end());
  return files;
}

}  // namespace tonalith::cli
