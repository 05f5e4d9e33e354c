// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/pack_install.h"

#include <QAccessible>
#include <QAccessibleEvent>
#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <filesystem>
#include <limits>
#include <utility>

#include "app/frm_tonalith.h"

namespace tonalith::app {
namespace {

// Milliseconds. For a shorter import the text would disappear before it can be read.
constexpr qint64 kBeforeFirstText = 500;
// Milliseconds between two updates of the text: a number that changes faster cannot be read.
constexpr qint64 kBetweenTexts = 100;

QString NameOf(const std::string& path) {
  return QString::fromStdString(std::filesystem::path(path).filename().string());
}

int CountOf(std::int64_t number) {
  return static_cast<int>(std::min<std::int64_t>(number, std::numeric_limits<int>::max()));
}

QString TotalText(const data::DataPackImport::Totals& totals) {
  const QString packs =
      totals.packs == 1 ? frmTonalith::tr("1 pack") : frmTonalith::tr("%n packs", nullptr, CountOf(totals.packs));
  if (totals.scales == 0) return frmTonalith::tr("No new scales in %1").arg(packs);
  if (totals.scales == 1) return frmTonalith::tr("1 scale added from %1").arg(packs);
  return frmTonalith::tr("%n scales added from %1", nullptr, CountOf(totals.scales)).arg(packs);
}

}  // namespace

PackInstall::PackInstall(const Place& place, std::function<void()> onPackDone)
    : controls_(place.controls.begin(), place.controls.end()),
      entries_(place.entries.begin(), place.entries.end()),
      label_(place.label),
      onPackDone_(std::move(onPackDone)) {
  for (QWidget* const window : place.windows) {
    if (window != nullptr) windows_.push_back({window, window->focusWidget(), nullptr});
  }
  for (const auto& control : controls_) {
    if (control != nullptr) control->setEnabled(false);
  }
  for (const auto& entry : entries_) entry->setEnabled(false);
  for (Window& window : windows_) window.focusMeanwhile = window.window->focusWidget();
  SetText({});
  sincePackBegan_.start();
}

void PackInstall::Run(const std::string& appFolder, core::MsgBox& msgBox) {
  data::DataPackImport import(appFolder, msgBox, *this);
  import.GetAvailableDataPacks();
  totals_ = import.Imported();
}

void PackInstall::End() {
  for (const auto& control : controls_) {
    if (!control.isNull()) control->setEnabled(true);
  }
  for (const auto& entry : entries_) {
    if (!entry.isNull()) entry->setEnabled(true);
  }
  for (const Window& window : windows_) {
    // Keep the focus where the user has moved it during the import.
    if (window.window.isNull() || window.focus.isNull()) continue;
    if (window.window->focusWidget() == window.focusMeanwhile) window.focus->setFocus(Qt::OtherFocusReason);
  }
  SetText(totals_.packs > 0 ? TotalText(totals_) : QString());
  if (label_.isNull() || totals_.packs == 0) return;
  QAccessibleEvent alert(label_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void PackInstall::DataPackDone() {
  onPackDone_();
  SetText({});
  sincePackBegan_.restart();
  sinceShown_.invalidate();
  ProcessEvents();
}

void PackInstall::ReadingProgress(const std::string& path, std::int64_t rows) {
  Show(frmTonalith::tr("Reading %1: %2 rows"), path, rows);
  ProcessEvents();
}

void PackInstall::ImportProgress(const std::string& path, std::int64_t rows) {
  Show(frmTonalith::tr("Importing %1: %2 rows"), path, rows);
  ProcessEvents();
}

void PackInstall::Show(const QString& text, const std::string& path, std::int64_t rows) {
  if (sincePackBegan_.elapsed() < kBeforeFirstText) return;
  if (sinceShown_.isValid() && sinceShown_.elapsed() < kBetweenTexts) return;
  sinceShown_.start();
  SetText(text.arg(NameOf(path), QLocale().toString(static_cast<qlonglong>(rows))));
}

void PackInstall::ProcessEvents() {
  if (!isStopping_) QCoreApplication::processEvents();
  if (isStopping_) throw data::ImportStopped();
}

void PackInstall::SetText(const QString& text) {
  if (!label_.isNull() && label_->text() != text) label_->setText(text);
}

}  // namespace tonalith::app
