// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/durable_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <thread>

#include "core/failure.h"
#include "data/data_failure.h"
#include "data/messages.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

core::Failure FileFailure(const std::string& path, MessageId what, int error) {
  return core::Failure::Unspecified({MessageId::kFileFailure, path, what, std::generic_category().message(error)});
}

void Sync(const std::string& path, int flags) {
  const int descriptor = ::open(path.c_str(), flags | O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) throw FileFailure(path, MessageId::kOpened, errno);
  const int result = ::fsync(descriptor);
  const int error = errno;
  ::close(descriptor);
  // EINVAL: the file system does not support this, in most cases for folders.
  if (result != 0 && error != EINVAL) throw FileFailure(path, MessageId::kSaved, error);
}

void SyncFolderOf(const std::string& path) { Sync(fs::path(path).parent_path().string(), O_DIRECTORY); }

bool HasSameContent(const std::string& a, const std::string& b) {
  std::error_code error;
  if (fs::equivalent(a, b, error)) return true;
  if (!fs::is_regular_file(b, error) || fs::file_size(a, error) != fs::file_size(b, error)) return false;
  std::ifstream first(a, std::ios::binary);
  std::ifstream second(b, std::ios::binary);
  return first && second &&
         std::equal(std::istreambuf_iterator<char>(first), std::istreambuf_iterator<char>(),
                    std::istreambuf_iterator<char>(second), std::istreambuf_iterator<char>());
}

}  // namespace

std::string LinkOrCopyWithLabel(const std::string& path, const std::string& label) {
  const fs::path file(path);
  for (int number = 1;; ++number) {
    std::string name = file.stem().string() + label;
    if (number > 1) name += " " + std::to_string(number);
    std::string backup = (file.parent_path() / (name + file.extension().string())).string();
    if (::link(path.c_str(), backup.c_str()) == 0) {
      SyncFolderOf(backup);
      return backup;
    }
    if (errno == EEXIST) {
      if (HasSameContent(path, backup)) return backup;
      continue;
    }
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS && errno != EMLINK) {
      throw FileFailure(backup, MessageId::kMade, errno);
    }
    if (!fs::exists(backup)) {
      CopyDurably(path, backup);
      return backup;
    }
    if (HasSameContent(path, backup)) return backup;
  }
}

void CopyDurably(const std::string& from, const std::string& to) {
  if (fs::exists(fs::symlink_status(to))) throw FileFailure(to, MessageId::kMade, EEXIST);
  const std::string unfinished = to + ".unfinished";
  std::error_code error;
  fs::copy_file(from, unfinished, fs::copy_options::overwrite_existing, error);
  if (error) {
    std::error_code ignored;
    fs::remove(unfinished, ignored);
    throw FileFailure(to, MessageId::kMade, error.value());
  }
  Sync(unfinished, 0);
  ReplaceDurably(unfinished, to);
}

void ReplaceDurably(const std::string& from, const std::string& to) {
  if (::rename(from.c_str(), to.c_str()) != 0) throw FileFailure(to, MessageId::kReplaced, errno);
  SyncFolderOf(to);
}

FileLock::FileLock(const std::string& path, std::chrono::milliseconds timeout)
    : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (descriptor_ < 0) throw FileFailure(path, MessageId::kOpened, errno);
  constexpr auto kBetweenTries = std::chrono::milliseconds(50);
  const auto end = std::chrono::steady_clock::now() + timeout;
  while (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR)) {
    if (std::chrono::steady_clock::now() >= end) {
      ::close(descriptor_);
      throw core::Failure::Unspecified({MessageId::kFileInUse, path});
    }
    std::this_thread::sleep_for(kBetweenTries);
  }
}

FileLock::~FileLock() { ::close(descriptor_); }

}  // namespace tonalith::data
