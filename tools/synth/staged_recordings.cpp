// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "synth/staged_recordings.h"

#include <fstream>
#include <iterator>
#include <string>

#include "audio/shipped_recording.h"
#include "platform/system/posix_file_input.h"

namespace tonalith::synth {
namespace {

namespace fs = std::filesystem;

std::string Bytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

bool IsShipped(const fs::path& path) {
  platform::PosixFileInput files;
  const std::unique_ptr<platform::InputFile> file = files.Open(path.string());
  return file && audio::IsShippedRecording(*file);
}

}  // namespace

void StageRecordings(const fs::path& from, const fs::path& to) {
  fs::create_directories(to);
  for (const fs::directory_entry& made : fs::directory_iterator(from)) {
    const fs::path staged = to / made.path().filename();
    const bool isThere = fs::symlink_status(staged).type() != fs::file_type::not_found;
    if (isThere && (!IsShipped(staged) || Bytes(staged) == Bytes(made.path()))) continue;
    const fs::path passing = staged.string() + ".new";
    fs::copy_file(made.path(), passing, fs::copy_options::overwrite_existing);
    fs::rename(passing, staged);
  }
}

}  // namespace tonalith::synth
