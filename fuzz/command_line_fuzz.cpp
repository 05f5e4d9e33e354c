// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads each input as the arguments of a command, one a line: names, symbols, keys, notes, frets and options. Any input
// has to give an answer, or a refusal with a text; no answer may be too large to write. The library is empty.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "data/schema.h"

namespace {

using namespace tonalith;

void Require(bool condition) {
  if (!condition) std::abort();
}

/// An empty library in a folder that stays until the system removes it.
cli::ProgramFolders MakeFolders() {
  std::string name = (std::filesystem::temp_directory_path() / "tonalith-fuzz-XXXXXX").string();
  Require(::mkdtemp(name.data()) != nullptr);
  data::CreateScaleDatabase(name + "/TonalithDB97.mdb");
  return {name, {}};
}

/// Options that would read another file are left out.
std::vector<std::string> Arguments(const std::string& text) {
  std::vector<std::string> arguments;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string argument = text.substr(begin, end - begin);
    if (!argument.starts_with("--l")) arguments.push_back(argument);
    begin = end + 1;
  }
  return arguments;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const cli::ProgramFolders kFolders = MakeFolders();
  const std::string text(reinterpret_cast<const char*>(data), size);
  const cli::Outcome outcome = cli::RunCommandLine(Arguments(text), kFolders);
  Require(outcome.exitCode >= 0 && outcome.exitCode <= 2);
  Require((outcome.exitCode == 0) == outcome.error.empty());
  return 0;
}
