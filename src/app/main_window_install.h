// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The install command of the main window: imports every data pack, and closes the window's database connection
// meanwhile. An import processes events, so the window may be destroyed while Run runs. Owned by the window. Shows
// failures as messages.

#pragma once

#include <string>

#include "app/pack_install.h"
#include "controls/data_control.h"
#include "core/msg_box.h"

namespace tonalith::app {

class MainWindowInstall {
 public:
  explicit MainWindowInstall(core::MsgBox& msgBox) : msgBox_(msgBox) {}
  ~MainWindowInstall() { Stop(); }
  MainWindowInstall(const MainWindowInstall&) = delete;
  MainWindowInstall& operator=(const MainWindowInstall&) = delete;

  /// `data1` is the data control of the window. Does nothing while an import runs.
  void Run(const PackInstall::Place& place, controls::DataControl& data1, const std::string& appFolder);
  /// Cancels a running import.
  void Stop();
  [[nodiscard]] bool IsRunning() const { return running_ != nullptr; }
  /// Whether any import has finished a pack.
  [[nodiscard]] bool PacksWereImported() const { return packsImported_; }

 private:
  core::MsgBox& msgBox_;
  PackInstall* running_ = nullptr;
  bool packsImported_ = false;
};

}  // namespace tonalith::app
