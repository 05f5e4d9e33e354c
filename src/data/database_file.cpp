// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/database_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "core/failure.h"
#include "data/data_failure.h"
#include "data/messages.h"
#include "jet/jet_file.h"
#include "jet/open_file.h"

namespace tonalith::data {
namespace {

using namespace std::string_view_literals;
// The first bytes of every database file of the engine (SQLite database file format, section 1.2).
constexpr std::string_view kSignature = "SQLite format 3\0"sv;

core::Failure CannotBeOpened(const std::string& path, const core::Message& reason) {
  return core::Failure::Unspecified({MessageId::kFileNotOpened, path, reason});
}

// The engine opens these files of any kind and would block on a pipe.
void RequireOrdinaryCompanions(const std::string& path) {
  for (const char* ending : {"-journal", "-wal"}) {
    struct stat status {};
    const std::string companion = path + ending;
    if (::stat(companion.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
      throw CannotBeOpened(companion, MessageId::kNoFile);
    }
  }
}

}  // namespace

std::string RequireDatabaseFile(const std::string& dataSource) {
  if (dataSource.empty()) throw core::Failure::Unspecified(MessageId::kNoDataSource);
  if (dataSource.find('\0') != std::string::npos)
    throw core::Failure::FileNotFound(dataSource.substr(0, dataSource.find('\0')));
  std::error_code error;
  std::string path = std::filesystem::absolute(dataSource, error).lexically_normal().string();
  if (error) throw core::Failure::FileNotFound(dataSource);

  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) throw core::Failure::FileNotFound(path);
    throw core::Failure::Unspecified({MessageId::kFileNotReached, path, std::generic_category().message(errno)});
  }
  if (S_ISDIR(status.st_mode)) throw core::Failure::Unspecified({MessageId::kIsFolder, path});
  if (!S_ISREG(status.st_mode)) throw core::Failure::UnrecognizedFormat(path);

  const jet::OpenFile file(path);
  if (file.Descriptor() < 0)
    throw CannotBeOpened(path, core::Message::Verbatim(std::generic_category().message(errno)));
  std::array<char, kSignature.size()> begin{};
  const ssize_t size = ::read(file.Descriptor(), begin.data(), begin.size());
  if (size < 0) {
    throw core::Failure::Unspecified({MessageId::kFileNotRead, path, std::generic_category().message(errno)});
  }
  const bool isOurs = std::string_view(begin.data(), static_cast<std::size_t>(size)) == kSignature;
  if (!isOurs && !jet::IsJetFile(path)) throw core::Failure::UnrecognizedFormat(path);
  if (isOurs) RequireOrdinaryCompanions(path);
  return path;
}

void RequireWholePages(const std::string& path, int pageSize) {
  std::error_code error;
  const std::uintmax_t length = std::filesystem::file_size(path, error);
  if (error || length % static_cast<std::uintmax_t>(pageSize) != 0) throw core::Failure::UnrecognizedFormat(path);
}

}  // namespace tonalith::data
