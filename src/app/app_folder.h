// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds the folder of the program's files, `AppFolder`. It is the folder of the executable, unless that is read-only or
// the content is installed elsewhere (a system-wide installation). Then it is a folder in the user's home, filled from
// the installed content at the first start. Later starts add missing files. From a newer installation they copy the
// help, and the recordings of scale notes that the user has not changed; the existing database, packs and other sounds
// belong to the user and are never replaced.

#pragma once

#include <filesystem>

namespace tonalith::app {

struct ProgramFolders {
  std::filesystem::path programFolder;  ///< the folder of the executable
  std::filesystem::path contentFolder;  ///< the folder of the installed content: the program's folder, or a shared one
  std::filesystem::path userDataHome;   ///< $XDG_DATA_HOME, or its default
};

/// Returns the content folder of a program in `programFolder`: the same one, or ../share/tonalith of an installation.
[[nodiscard]] std::filesystem::path FindContentFolder(const std::filesystem::path& programFolder);

/// Whether the process may create files in `folder`.
[[nodiscard]] bool IsWritableFolder(const std::filesystem::path& folder);

/// Returns the folder of database, sounds, packs and help. Creates and fills the user's folder if needed. Throws
/// core::Failure with the path that cannot be created or copied.
std::filesystem::path ResolveAppFolder(const ProgramFolders& folders);

}  // namespace tonalith::app
