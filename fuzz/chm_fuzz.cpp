// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fuzzes the reading of compiled help files in a child process with chmlib. The parent must always get the objects or a
// failure within the time limits, and the objects must be within the size limits. The fuzzer has no coverage of chmlib
// and would drift to inputs that are refused immediately, so inputs are changed byte by byte and keep their length.

#include <pthread.h>
#include <sanitizer/common_interface_defs.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "core/failure.h"
#include "help/chm_file.h"

namespace {

using namespace tonalith;  // NOLINT(google-build-using-namespace)
using namespace std::chrono_literals;

constexpr sandbox::Limits kLimits{1s, 2s, std::uint64_t{64} << 20};

void Demand(bool condition) {
  if (!condition) std::abort();
}

/// One file for all inputs of this run.
class InputFile {
 public:
  InputFile() {
    std::string name = (std::filesystem::temp_directory_path() / "tonalith-fuzz-XXXXXX").string();
    Demand(::mkdtemp(name.data()) != nullptr);
    folder_ = name;
  }
  ~InputFile() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  std::string Write(const std::uint8_t* data, std::size_t size) {
    const std::string path = (folder_ / "input.chm").string();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    return path;
  }

 private:
  std::filesystem::path folder_;
};

/// The child process may end in any way: that is not a finding and must not write a file.
void BeQuietInChildren() {
  static const int done = ::pthread_atfork(nullptr, nullptr, [] { __sanitizer_set_death_callback(nullptr); });
  Demand(done == 0);
}

}  // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  constexpr std::size_t kSmallest = 200;
  if (size < kSmallest) return LLVMFuzzerMutate(data, size, maxSize);
  std::minstd_rand random(seed);
  for (std::size_t changes = 1 + random() % 16; changes > 0; --changes) {
    constexpr std::uint8_t kExtremes[] = {0x00, 0x01, 0x7F, 0x80, 0xFF};
    // Half of the changes affect headers and lists, which are the smaller part.
    const std::size_t range = random() % 2 == 0 ? size : std::min<std::size_t>(size, 6000);
    data[random() % range] = random() % 2 == 0 ? static_cast<std::uint8_t>(random()) : kExtremes[random() % 5];
  }
  return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  BeQuietInChildren();
  static InputFile file;
  const auto begin = std::chrono::steady_clock::now();
  try {
    const help::ChmObjects objects = help::ReadChmFile(file.Write(data, size), kLimits);
    Demand(objects.size() <= help::kMostChmObjects);
    std::uint64_t content = 0;
    for (const auto& [path, bytes] : objects) content += bytes.size();
    Demand(content <= help::kLargestChmContent);
  } catch (const core::Failure& failure) {
    Demand(!failure.Description().empty());
  }
  Demand(std::chrono::steady_clock::now() - begin < kLimits.total + 3s);
  return 0;
}
