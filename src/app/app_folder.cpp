// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/app_folder.h"

#include <unistd.h>

#include <array>
#include <memory>
#include <string_view>
#include <system_error>

#include "app/messages.h"
#include "audio/shipped_recording.h"
#include "core/deferred_failure.h"
#include "core/failure.h"
#include "data/scale_database.h"
#include "help/mod_html_help.h"
#include "platform/system/posix_file_input.h"

namespace tonalith::app {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kPathAccessError = 75;
constexpr std::string_view kRecordings = "Audio";
constexpr std::array<std::string_view, 5> kContent = {data::kDatabaseFileName, kRecordings, "Octaves", "DataPacks",
                                                      help::kHelpFileName};

[[noreturn]] void ThrowAccessError(const fs::path& path, const std::error_code& error) {
  throw core::Failure(kPathAccessError, {MessageId::kPathAccessError, path.string(), error.message()});
}

/// Makes the copy writable: installed content may be read-only. Keeps the modification time: it shows later whether the
/// installation is newer.
void CopyFile(const fs::path& from, const fs::path& to, std::error_code& error) {
  fs::copy_file(from, to, error);
  if (!error) fs::permissions(to, fs::perms::owner_write, fs::perm_options::add, error);
  const fs::file_time_type time = error ? fs::file_time_type() : fs::last_write_time(from, error);
  if (!error) fs::last_write_time(to, time, error);
}

void CopyTree(const fs::path& from, const fs::path& to, std::error_code& error) {
  if (!fs::is_directory(from, error)) {
    if (!error) CopyFile(from, to, error);
    return;
  }
  fs::create_directory(to, error);
  for (auto entry = fs::directory_iterator(from, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    CopyTree(entry->path(), to / entry->path().filename(), error);
    if (error) return;
  }
}

/// Copies one file or folder under a temporary name and then renames it: an interrupted start leaves no partial copy.
void CopyEntry(const fs::path& from, const fs::path& to) {
  std::error_code error;
  const fs::path temporary = to.string() + ".part";
  fs::remove_all(temporary, error);
  if (!error) CopyTree(from, temporary, error);
  if (!error) fs::rename(temporary, to, error);
  if (error) ThrowAccessError(to, error);
}

bool IsNewer(const fs::path& installed, const fs::path& copy) {
  std::error_code error;
  const fs::file_time_type time = fs::last_write_time(installed, error);
  return !error && time > fs::last_write_time(copy, error) && !error;
}

/// Replaces the user's copy by the installed file. The program works with the old copy if this fails.
void ReplaceByInstalled(const fs::path& from, const fs::path& to) {
  core::DeferredFailure failure;
  failure.Try([&] { CopyEntry(from, to); });
  failure.Clear();
}

bool IsShippedRecording(const fs::path& path) {
  platform::PosixFileInput files;
  const std::unique_ptr<platform::InputFile> file = files.Open(path.string());
  return file && audio::IsShippedRecording(*file);
}

/// Replaces older recordings that the user has not changed. Reads a copy only if the installed file is newer.
void ReplaceOlderRecordings(const fs::path& from, const fs::path& to) {
  std::error_code error;
  for (auto entry = fs::directory_iterator(from, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    const fs::path copy = to / entry->path().filename();
    if (IsNewer(entry->path(), copy) && IsShippedRecording(copy)) ReplaceByInstalled(entry->path(), copy);
  }
}

}  // namespace

fs::path FindContentFolder(const fs::path& programFolder) {
  const fs::path shared = programFolder.parent_path() / "share" / "tonalith";
  std::error_code error;
  const bool isInstalled = !fs::exists(programFolder / data::kDatabaseFileName, error) &&
                           fs::exists(shared / data::kDatabaseFileName, error);
  return isInstalled ? shared : programFolder;
}

bool IsWritableFolder(const fs::path& folder) {
  std::error_code error;
  return fs::is_directory(folder, error) && ::access(folder.c_str(), W_OK | X_OK) == 0;
}

fs::path ResolveAppFolder(const ProgramFolders& folders) {
  const bool isInstalled = folders.contentFolder != folders.programFolder;
  if (!isInstalled && IsWritableFolder(folders.programFolder)) return folders.programFolder;
  fs::path folder = folders.userDataHome / "tonalith";
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) ThrowAccessError(folder, error);
  for (const std::string_view name : kContent) {
    const fs::path from = folders.contentFolder / name;
    if (fs::exists(from, error) && !fs::exists(folder / name, error)) CopyEntry(from, folder / name);
  }
  const fs::path help = folders.contentFolder / help::kHelpFileName;
  if (IsNewer(help, folder / help::kHelpFileName)) ReplaceByInstalled(help, folder / help::kHelpFileName);
  ReplaceOlderRecordings(folders.contentFolder / kRecordings, folder / kRecordings);
  return folder;
}

}  // namespace tonalith::app
