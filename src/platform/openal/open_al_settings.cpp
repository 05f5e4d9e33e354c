// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/openal/open_al_settings.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace tonalith::platform {
namespace {

// 256 frames are 5.8 ms at 44.1 kHz; four of them in flight are as much as the usual two of twice the length.
constexpr const char* kSettings =
    "[general]\n"
    "period_size = 256\n"
    "periods = 4\n";

std::string ContentOf(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void OfferSettings() {
  std::string settings = kSettings;
  const char* const chosen = std::getenv("ALSOFT_CONF");
  if (chosen != nullptr && *chosen != '\0') settings += ContentOf(chosen);
  // The descriptor stays open for the process's life: OpenAL Soft opens the path when it is first used.
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
    OfferSettings();
    ::setenv("ALSOFT_LOGLEVEL", "0", 0);
    return true;
  }();
  static_cast<void>(prepared);
}

}  // namespace tonalith::platform
