// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The start procedures: they change to the program's folder (for a network share, to its mapped drive), open the
// database, and load, bind and show the main window. Failures are shown as messages, and the window opens in any case.

#pragma once

#include <memory>
#include <string>

#include "app/frm_tonalith.h"
#include "core/msg_box.h"
#include "platform/network_drives.h"
#include "platform/working_directory.h"

namespace tonalith::app {

/// Returns the first drive ("X:"), from A to Z, that is mapped to exactly `share`, ignoring ASCII case; empty if there
/// is none.
std::string FindDriveForShare(const std::string& share, const platform::NetworkDrives& drives);

/// Changes to the folder. A path that begins with two separators of either kind is a share; a path whose second
/// character is ":" or that begins with the system's separator is local; any other path is ignored. A failure is shown
/// as "Error: " and its description.
void SetWorkingDirectory(const std::string& appFolder, const platform::NetworkDrives& drives,
                         platform::WorkingDirectory& directory, core::MsgBox& msgBox);

/// Converts the database if it is a Jet file, opens the shared connection and record set, loads the main window, binds
/// its data control, lays out the neck, draws the first scale and shows the window. A failure is shown as one critical
/// message with number and description, after the window.
std::unique_ptr<frmTonalith> OpenScaleDatabase(const FormServices& services);

/// Runs the complete start.
std::unique_ptr<frmTonalith> Main(const FormServices& services, const platform::NetworkDrives& drives,
                                  platform::WorkingDirectory& directory);

}  // namespace tonalith::app
