// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Where the command line finds library and packs: the folder that the program itself uses. Creates and changes nothing,
// so before the first start of an installed program it uses the installed content.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tonalith::cli {

struct ProgramFolders {
  /// The folder of the executable.
  std::filesystem::path program;
  /// $XDG_DATA_HOME or its default; may be empty.
  std::filesystem::path userData;
};

/// Those of the running program.
[[nodiscard]] ProgramFolders FindProgramFolders();

struct ProgramFiles {
  std::string library;
  /// In the order of their names. Also those that are installed in the library.
  std::vector<std::string> packs;
};

/// The library need not exist.
[[nodiscard]] ProgramFiles FindProgramFiles(const ProgramFolders& folders);

}  // namespace tonalith::cli
