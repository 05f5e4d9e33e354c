// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_window_install.h"

#include <QPointer>

#include "core/deferred_failure.h"
#include "data/scale_database.h"

namespace tonalith::app {

void MainWindowInstall::Stop() {
  if (running_ != nullptr) running_->Stop();
}

void MainWindowInstall::Run(const PackInstall::Place& place, controls::DataControl& data1,
                            const std::string& appFolder) {
  if (IsRunning()) return;
  // The window destroys its data control and this object.
  const QPointer<controls::DataControl> window(&data1);
  core::MsgBox& msgBox = msgBox_;
  PackInstall install(place, [this, window] {
    if (!window.isNull()) packsImported_ = true;
  });
  running_ = &install;
  core::DeferredFailure failure;
  failure.Try([&] {
    data1.Release();
    data1.SetConnectionString({});
  });
  failure.Try([&] { install.Run(appFolder, msgBox); });
  if (window.isNull()) return;
  install.End();
  // Kept: see docs/behaviour.md, Data1 is bound twice
  failure.Try([&] {
    data1.SetConnectionString(std::string(data::kConnectionByFileName));
    data1.Refresh();
  });
  running_ = nullptr;
  if (!install.IsStopped()) failure.ReportDescription(msgBox);
}

}  // namespace tonalith::app
