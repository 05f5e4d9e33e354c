// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Where the program's files are. The program's own folder is `AppFolder`; where that cannot be written (a system-wide
// installation) it is a folder of the user's, filled from the installed content at the first start and never
// overwritten after. Called once, at start-up; failures are core::Failure.

#pragma once

#include <filesystem>

namespace tonalith::app {

struct ProgramPlaces {
  std::filesystem::path programFolder;  ///< where the executable is
  std::filesystem::path contentFolder;  ///< where the installed content is: the program's folder, or a shared one
  std::filesystem::path userDataHome;   ///< $XDG_DATA_HOME, or what stands for it
};

/// What this user and process may create files in.
[[nodiscard]] bool IsWritableFolder(const std::filesystem::path& folder);

/// The folder that holds database, sounds, packs and help. Creates and fills the user's folder where it is needed; an
/// entry that is there already is left alone, and one that cannot be copied is a Failure that names it.
std::filesystem::path ResolveAppFolder(const ProgramPlaces& places);

}  // namespace tonalith::app
