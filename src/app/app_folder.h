// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Where the program's files are. The program's own folder is `AppFolder`; where that cannot be written, or where the
// content is installed elsewhere (a system-wide installation), it is a folder of the user's, filled from the installed
// content at the first start. Later starts add what is missing. From a newer installation they take the help, and the
// recordings of scale notes that the user has not changed; database, packs and all other sounds that are there are the
// user's and stay. Called once, at start-up; failures are core::Failure.

#pragma once

#include <filesystem>

namespace tonalith::app {

struct ProgramFolders {
  std::filesystem::path programFolder;  ///< where the executable is
  std::filesystem::path contentFolder;  ///< where the installed content is: the program's folder, or a shared one
  std::filesystem::path userDataHome;   ///< $XDG_DATA_HOME, or what stands for it
};

/// Where the content of a program in `programFolder` is: beside it, or in ../share/tonalith of an installation.
[[nodiscard]] std::filesystem::path FindContentFolder(const std::filesystem::path& programFolder);

/// What this user and process may create files in.
[[nodiscard]] bool IsWritableFolder(const std::filesystem::path& folder);

/// The folder that holds database, sounds, packs and help. Creates and fills the user's folder where it is needed; what
/// cannot be copied is a Failure that names it.
std::filesystem::path ResolveAppFolder(const ProgramFolders& folders);

}  // namespace tonalith::app
