// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/m_main.h"

#include "app/messages.h"
#include "app/screen_fit.h"
#include "core/deferred_failure.h"
#include "core/paths.h"
#include "core/text.h"
#include "data/jet_conversion.h"
#include "data/shipped_rows.h"
#include "windows/screen_size.h"

namespace tonalith::app {
namespace {

/// The share's name without its terminator, which the reported length includes.
std::string ShareName(const platform::NetworkConnection& connection) {
  const std::size_t length = connection.reportedLength == 0 ? 0 : connection.reportedLength - 1;
  return connection.remoteName.substr(0, length);
}

}  // namespace

// Kept: see docs/behaviour.md, A share is found by its whole path.
std::string FindDriveForShare(const std::string& share, const platform::NetworkDrives& drives) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    std::string drive = {letter, ':'};
    const auto connection = drives.ConnectionOf(drive);
    if (connection && core::EqualWithoutCase(ShareName(*connection), share)) return drive;
  }
  return {};
}

void SetWorkingDirectory(const std::string& appFolder, const platform::NetworkDrives& drives,
                         platform::WorkingDirectory& directory, core::MsgBox& msgBox) {
  core::DeferredFailure failure;
  if (core::IsNetworkPath(appFolder)) {
    const std::string drive = FindDriveForShare(appFolder, drives);
    failure.Try([&] { directory.MakeDriveCurrent(drive); });
    failure.Try([&] { directory.ChangeTo(drive + core::kPathSeparator); });
  } else if (appFolder.size() >= 2 && appFolder[1] == ':') {
    failure.Try([&] { directory.MakeDriveCurrent(appFolder.substr(0, 2)); });
    failure.Try([&] { directory.ChangeTo(appFolder); });
  } else if (!appFolder.empty() && appFolder[0] == core::kPathSeparator) {
    failure.Try([&] { directory.ChangeTo(appFolder); });
  }
  if (failure.Pending()) msgBox.Show({MessageId::kError, failure.Pending()->Text()});
}

std::unique_ptr<frmTonalith> OpenScaleDatabase(const FormServices& services) {
  core::DeferredFailure failure;
  const bool opened = failure.Try([&] {
    data::ConvertMainDatabaseIfJet(services.database.DatabasePath());
    data::RenewShippedRows(services.database.DatabasePath());
    services.database.OpenShared();
  });
  auto form = std::make_unique<frmTonalith>(services);
  form->Controls().Data1->SetRecordSource(std::string(data::kAllScalesStatement));
  if (opened) failure.Try([&] { form->BindData(); });
  failure.Try([&] { form->Controls().fretboard->PositionNotes(); });
  form->UpdateForm();
  if (const auto room = windows::AvailableSize(form->screen())) AddScrollBars(*form, *room);
  form->show();
  if (!failure.Pending()) {
    const core::Message notice = services.database.ScaleConnection()->NoticeText();
    if (!notice.IsEmpty()) services.msgBox.Show(notice, core::MsgBoxStyle::kInformation);
  }
  // After the window is shown, so that the message box has an owner.
  failure.ReportNumberAndDescription(services.msgBox, core::MsgBoxStyle::kCritical);
  return form;
}

std::unique_ptr<frmTonalith> Main(const FormServices& services, const platform::NetworkDrives& drives,
                                  platform::WorkingDirectory& directory) {
  SetWorkingDirectory(services.database.AppFolder(), drives, directory, services.msgBox);
  return OpenScaleDatabase(services);
}

}  // namespace tonalith::app
