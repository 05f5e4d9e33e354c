// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The start: the program's folder becomes the working directory (a folder on a share through the drive that it is
// mapped to), the database is opened, the main window is loaded, bound and shown. Over ports, so that it can be tested
// on any system. User-interface thread, once. Failures are shown; the window comes up whatever failed before it.

#pragma once

#include <memory>
#include <string>

#include "app/frm_tonalith.h"
#include "core/msg_box.h"
#include "platform/network_drives.h"
#include "platform/working_directory.h"

namespace tonalith::app {

/// The drive ("X:") that `share` is mapped to, letters tried from A to Z, compared whole and without regard to ASCII
/// case; empty when there is none.
std::string FindDriveForShare(const std::string& share, const platform::NetworkDrives& drives);

/// Moves to the folder: a path that begins with two separators of either kind is a share, one whose second character is
/// ":" or that begins with the system's separator is local, any other one is left alone. A failure is shown as
/// "Error: " and its description.
void SetWorkingDirectory(const std::string& appFolder, const platform::NetworkDrives& drives,
                         platform::WorkingDirectory& directory, core::MsgBox& msgBox);

/// Converts a Jet file that stands in the database's place, opens the shared connection and record set, loads the main
/// window, binds its data control, lays out the neck, draws the first scale and shows the window. A failure is one
/// critical message, number and description, over the window.
std::unique_ptr<frmTonalith> OpenScaleDatabase(const FormServices& services);

/// The whole start.
std::unique_ptr<frmTonalith> Main(const FormServices& services, const platform::NetworkDrives& drives,
                                  platform::WorkingDirectory& directory);

}  // namespace tonalith::app
