// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/sound/open_al_settings.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace tonalith::platform {
namespace {

// 256 frames are 5.8 ms at 44.1 kHz; four periods buffer as much as the default two of twice the length.
constexpr const char* kSettings =
    "[general]\n"
    "period_size = 256\n"
    "periods = 4\n";

// In bytes; far more than all settings with their comments need.
constexpr std::size_t kMaxSettingsSize = std::size_t{1} << 20;

/// The content of a settings file; empty if it is not a regular file, which may have no end.
std::string ContentOf(const char* path) {
  // O_NONBLOCK: opening a pipe without a writer returns immediately.
  const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  if (descriptor < 0) return {};
  std::string content;
  struct stat status {};
  if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0 &&
      static_cast<std::size_t>(status.st_size) <= kMaxSettingsSize) {
    content.resize(static_cast<std::size_t>(status.st_size));
    content.resize(
        static_cast<std::size_t>(std::max<ssize_t>(::pread(descriptor, content.data(), content.size(), 0), 0)));
  }
  ::close(descriptor);
  return content;
}

void SetSettingsFile() {
  std::string settings = kSettings;
  const char* const chosen = std::getenv("ALSOFT_CONF");
  if (chosen != nullptr && *chosen != '\0') settings += ContentOf(chosen);
  // The descriptor stays open until the process ends: OpenAL Soft opens the path when first used.
  const int descriptor = ::memfd_create("tonalith-openal", MFD_CLOEXEC);
  if (descriptor < 0) return;
  if (::write(descriptor, settings.data(), settings.size()) != static_cast<ssize_t>(settings.size())) {
    ::close(descriptor);
    return;
  }
  const std::string path = "/proc/" + std::to_string(::getpid()) + "/fd/" + std::to_string(descriptor);
  ::setenv("ALSOFT_CONF", path.c_str(), 1);
}

}  // namespace

void PrepareOpenAl() {
  static const bool prepared = [] {
    SetSettingsFile();
    ::setenv("ALSOFT_LOGLEVEL", "0", 0);
    return true;
  }();
  static_cast<void>(prepared);
}

}  // namespace tonalith::platform
