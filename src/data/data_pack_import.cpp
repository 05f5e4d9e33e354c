// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/data_pack_import.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "core/deferred_failure.h"
#include "core/failure.h"
#include "core/paths.h"
#include "data/data_failure.h"
#include "data/messages.h"
#include "data/pack_merge.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPackPrefix = "DataPack_";
constexpr std::string_view kPackEnding = ".mdb";

bool EndsAround(std::string_view name, std::string_view prefix, std::string_view ending) {
  return name.size() >= prefix.size() + ending.size() && SameName(name.substr(0, prefix.size()), prefix) &&
         SameName(name.substr(name.size() - ending.size()), ending);
}

// The pattern DataPack_*.mdb, with the case rule of the file system: a name in another case matches if the system also
// finds the file in the case of the pattern.
bool MatchesPattern(const fs::path& file) {
  const std::string name = file.filename().string();
  if (!EndsAround(name, kPackPrefix, kPackEnding)) return false;
  std::string inPatternCase = name;
  inPatternCase.replace(0, kPackPrefix.size(), kPackPrefix);
  inPatternCase.replace(name.size() - kPackEnding.size(), kPackEnding.size(), kPackEnding);
  if (inPatternCase == name) return true;
  std::error_code error;
  return fs::equivalent(file, file.parent_path() / inPatternCase, error);
}

}  // namespace

bool FieldExists(const RecordSet& recordset, std::string_view name) { return recordset.FindField(name).has_value(); }

DataPackImport::DataPackImport(std::string appFolder, core::MsgBox& msgBox, DataPackObserver& observer)
    : appFolder_(std::move(appFolder)), msgBox_(msgBox), observer_(observer) {}

std::vector<std::string> DataPackImport::ListDataPacks() const {
  const std::string folder = appFolder_ + core::kPathSeparator + "DataPacks" + core::kPathSeparator;
  std::vector<std::string> packs;
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code vanished;
    if (entry->is_regular_file(vanished) && MatchesPattern(entry->path())) {
      packs.push_back(folder + entry->path().filename().string());
    }
  }
  const bool isAbsent = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
  if (error && !isAbsent) throw core::Failure::Unspecified({MessageId::kFolderNotRead, folder, error.message()});
  return packs;
}

std::vector<std::string> DataPackImport::GetAvailableDataPacks() {
  std::vector<std::string> packs = ListDataPacks();
  for (const std::string& pack : packs) {
    currentPack_ = pack;
    ImportDataPack(pack);
    if (isStopped_) break;
    observer_.DataPackDone();
  }
  return packs;
}

void DataPackImport::ImportDataPack(const std::string& path) {
  const auto onRead = [&](std::int64_t rows) { observer_.ReadingProgress(path, rows); };
  const auto onRow = [&](std::int64_t rows) {
    if (rows % kRowsPerProgress == 0) observer_.ImportProgress(path, rows);
  };
  PackMerge merge(path, onRead, onRow);
  try {
    merge.Run();
    ++imported_.packs;
    imported_.scales += merge.AddedScales();
    msgBox_.Show({MessageId::kImported, path}, core::MsgBoxStyle::kInformation);
  } catch (const ImportStopped&) {
    // The destructor of the merge closes the connection, which rolls back.
    isStopped_ = true;
  } catch (const std::exception&) {
    const core::Failure failure = core::Failure::FromCurrentException();
    core::DeferredFailure ignored;
    ignored.Try([&] { merge.Rollback(); });
    ignored.Clear();
    msgBox_.Show({MessageId::kImportError, path, failure.Text()}, core::MsgBoxStyle::kCritical);
  }
}

}  // namespace tonalith::data
